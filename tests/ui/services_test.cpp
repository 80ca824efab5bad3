// The desktop's interactive services, answered by a test driver that finds the real
// widgets by name: message boxes carry the session's title and give the answer clicked,
// the picker returns "OIDR_text", the input box returns what was typed, and the print
// preview shows a PDF and saves it through the file dialog.
#include "desktop_fixture.h"

#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "ui/services/object_picker_dialog.h"
#include "ui/services/pdf_preview_dialog.h"

#include <QBuffer>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>

namespace orvo::ui::testing {

namespace {

struct SeenBox {
    QString Name;
    QString Title;
    QString Text;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;
};

// Records the box and clicks `button` in it.
void clickInBox(const QString& button, SeenBox* seen) {
    DialogDriver::Set([button, seen](QDialog& dialog) {
        seen->Name = dialog.objectName();
        seen->Title = dialog.windowTitle();
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            seen->Text = box->text();
            seen->Icon = box->icon();
        }
        DialogDriver::Click(dialog, button);
    });
}

// A navigator whose list mixes groups (OType "GR" + code) with plain records, as the
// journals' list does: the group picker offers the groups only.
class GroupedNavigator : public OrvoObjectUIBase {
public:
    GroupedNavigator()
        : OrvoObjectUIBase(QStringLiteral("O9900100"), QStringLiteral("UI9900100"),
                           QStringLiteral("Grupuotas sąrašas")) {}
    RecordsetPtr GetOrvoObjectList(const QString&, const QString&, const QString&) override {
        auto rs =
            Recordset::Create({FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                               FieldDef::Make(QStringLiteral("OType"), FieldType::VarWChar, 20),
                               FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar)});
        const QList<QStringList> rows = {{QStringLiteral("O99001001"), QStringLiteral("GRO9900101"),
                                          QStringLiteral("Kasos žurnalai")},
                                         {QStringLiteral("O99001002"), QStringLiteral("O9900101"),
                                          QStringLiteral("Kasos knyga")},
                                         {QStringLiteral("O99001003"), QStringLiteral("GRO9900101"),
                                          QStringLiteral("Banko žurnalai")}};
        for (const QStringList& row : rows) {
            rs->AddNew();
            rs->SetField(QStringLiteral("OIDR"), row.at(0));
            rs->SetField(QStringLiteral("OType"), row.at(1));
            rs->SetField(QStringLiteral("Preview"), row.at(2));
            rs->Update();
        }
        return rs;
    }
};

QByteArray twoPagePdf() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    painter.drawText(QPointF(100, 100), QStringLiteral("Kasos pajamų orderis"));
    writer.newPage();
    painter.drawText(QPointF(100, 100), QStringLiteral("Antras puslapis"));
    painter.end();
    return bytes;
}

} // namespace

TEST_F(DesktopTest, ErrorBoxIsTitledWithTheSessionTitleAndAnsweredByOK) {
    SeenBox seen;
    clickInBox(QStringLiteral("cmdOK"), &seen);
    ShowError(QStringLiteral("Įrašymas neatliktas !"));
    EXPECT_EQ(seen.Name, QStringLiteral("MessageBox"));
    EXPECT_EQ(seen.Title, QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(seen.Title, MessageTitle());
    EXPECT_EQ(seen.Text, QStringLiteral("Įrašymas neatliktas !"));
    EXPECT_EQ(seen.Icon, QMessageBox::Critical);
    const QList<ShownMessage> shown = window_->Services().Messages->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Error);
}

TEST_F(DesktopTest, WarningAndInformationBoxesCarryTheirOwnIcons) {
    SeenBox seen;
    clickInBox(QStringLiteral("cmdOK"), &seen);
    ShowWarning(QStringLiteral("Nenurodyta  balansinė sąskaita !"));
    EXPECT_EQ(seen.Icon, QMessageBox::Warning);
    EXPECT_EQ(seen.Title, QStringLiteral("Orvo Apskaita"));
    ShowInformation(QStringLiteral("Sąskaita panaikinta!"));
    EXPECT_EQ(seen.Icon, QMessageBox::Information);
    EXPECT_EQ(seen.Text, QStringLiteral("Sąskaita panaikinta!"));
}

TEST_F(DesktopTest, QuestionAnsweredYesGivesTrue) {
    SeenBox seen;
    clickInBox(QStringLiteral("cmdYes"), &seen);
    EXPECT_TRUE(AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")));
    EXPECT_EQ(seen.Title, QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(seen.Icon, QMessageBox::Question);
    const QList<ShownMessage> shown = window_->Services().Messages->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Question);
    EXPECT_TRUE(shown.first().Answer);
}

TEST_F(DesktopTest, QuestionAnsweredNoGivesFalse) {
    SeenBox seen;
    clickInBox(QStringLiteral("cmdNo"), &seen);
    EXPECT_FALSE(AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")));
}

TEST_F(DesktopTest, QuestionClosedWithoutAnAnswerIsNo) {
    // The driver clicks nothing: the box is closed as cancelled.
    DialogDriver::Set([](QDialog&) {});
    EXPECT_FALSE(AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")));
}

TEST_F(DesktopTest, PickerReturnsTheChosenFirmAsOidrUnderscoreName) {
    const OrvoObjectsServicePtr objects = session_->Services()->ObjectsService();
    const QList<ObjectPickerDialog::Entry> entries =
        window_->Services().Pickers->ObjectEntries(QStringLiteral("O0000100"), {}, {});
    ASSERT_GE(entries.size(), 2);
    const OrvoObjectUIOPtr second = objects->GetObjectUIO(entries.at(1).OIDR);
    ASSERT_TRUE(second);
    const QString name = second->Field(QStringLiteral("Name")).toString();
    ASSERT_FALSE(name.isEmpty());

    int visibleAfterSearch = -1;
    QString title;
    DialogDriver::Set([&](QDialog& dialog) {
        title = dialog.windowTitle();
        dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(name.toUpper());
        visibleAfterSearch = static_cast<ObjectPickerDialog&>(dialog).VisibleCount();
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    const QString picked = OrvoS()->PickersService()->PickObject(
        QStringLiteral("O0000100"), QStringLiteral("Pasirinkite įmonę"), QStringLiteral("Name"),
        QString());
    EXPECT_EQ(title, QStringLiteral("Pasirinkite įmonę"));
    EXPECT_GE(visibleAfterSearch, 1);
    EXPECT_LT(visibleAfterSearch, entries.size());
    EXPECT_EQ(picked, entries.at(1).OIDR + QLatin1Char('_') + name);
}

TEST_F(DesktopTest, PickerCancelledGivesAnEmptyText) {
    DialogDriver::Set(
        [](QDialog& dialog) { DialogDriver::Click(dialog, QStringLiteral("cmdCancel")); });
    EXPECT_TRUE(OrvoS()
                    ->PickersService()
                    ->PickObject(QStringLiteral("O0000100"), QStringLiteral("Įmonės"), {}, {})
                    .isEmpty());
}

TEST_F(DesktopTest, PickerSearchThatMatchesNothingCannotBeAccepted) {
    DialogDriver::Set([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch"))
            ->setText(QStringLiteral("tokios įmonės nėra"));
        EXPECT_FALSE(DialogDriver::Click(dialog, QStringLiteral("cmdOK")));
    });
    EXPECT_TRUE(OrvoS()
                    ->PickersService()
                    ->PickObject(QStringLiteral("O0000100"), QStringLiteral("Įmonės"), {}, {})
                    .isEmpty());
}

TEST_F(DesktopTest, PickerFilterNarrowsTheOfferedObjects) {
    const QList<ObjectPickerDialog::Entry> all =
        window_->Services().Pickers->ObjectEntries(QStringLiteral("O0000100"), {}, {});
    ASSERT_GE(all.size(), 2);
    const QList<ObjectPickerDialog::Entry> one = window_->Services().Pickers->ObjectEntries(
        QStringLiteral("O0000100"), {},
        QStringLiteral("OIDR = '") + all.first().OIDR + QStringLiteral("'"));
    ASSERT_EQ(one.size(), 1);
    EXPECT_EQ(one.first().OIDR, all.first().OIDR);
}

TEST_F(DesktopTest, PickerOffersEveryKindAskedFor) {
    const auto firms =
        window_->Services().Pickers->ObjectEntries(QStringLiteral("O0000100"), {}, {});
    const auto banks =
        window_->Services().Pickers->ObjectEntries(QStringLiteral("O0000300"), {}, {});
    const auto both =
        window_->Services().Pickers->ObjectEntries(QStringLiteral("O0000100;O0000300"), {}, {});
    ASSERT_FALSE(banks.isEmpty());
    EXPECT_EQ(both.size(), firms.size() + banks.size());
}

TEST_F(DesktopTest, GroupPickerOffersOnlyTheGroupsAndReturnsTheChosenOne) {
    ObjectRegistry::Component().RegisterNavigator(QStringLiteral("O9900100"), [](const QString&) {
        return std::make_shared<GroupedNavigator>();
    });
    const auto groups = window_->Services().Pickers->GroupEntries(QStringLiteral("O9900100"));
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups.at(0).Text, QStringLiteral("Kasos žurnalai"));
    EXPECT_EQ(groups.at(1).Text, QStringLiteral("Banko žurnalai"));

    DialogDriver::Set([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(QStringLiteral("banko"));
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    EXPECT_EQ(OrvoS()->PickersService()->PickGroup(QStringLiteral("O9900100"),
                                                   QStringLiteral("Pasirinkite grupę")),
              QStringLiteral("O99001003_Banko žurnalai"));
}

TEST_F(DesktopTest, InputBoxGivesTheTypedTextBack) {
    QString prompt;
    QString initial;
    DialogDriver::Set([&](QDialog& dialog) {
        prompt = dialog.findChild<QLabel*>(QStringLiteral("lblPrompt"))->text();
        auto* input = dialog.findChild<QLineEdit*>(QStringLiteral("txtInput"));
        initial = input->text();
        input->setText(QStringLiteral("2024 m. kovas"));
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    const std::optional<QString> typed = OrvoS()->InputsService()->InputBox(
        QStringLiteral("Įveskite pavadinimą:"), QStringLiteral("Orvo Apskaita"),
        QStringLiteral("Numatytas"));
    EXPECT_EQ(prompt, QStringLiteral("Įveskite pavadinimą:"));
    EXPECT_EQ(initial, QStringLiteral("Numatytas"));
    ASSERT_TRUE(typed.has_value());
    EXPECT_EQ(*typed, QStringLiteral("2024 m. kovas"));
}

TEST_F(DesktopTest, InputBoxCancelledGivesNothing) {
    DialogDriver::Set(
        [](QDialog& dialog) { DialogDriver::Click(dialog, QStringLiteral("cmdCancel")); });
    EXPECT_FALSE(OrvoS()->InputsService()->InputBox(QStringLiteral("?"), QStringLiteral("T")));
}

TEST_F(DesktopTest, FileDialogAnswersThePathChosen) {
    const QString target = dir_.filePath(QStringLiteral("israsas.txt"));
    DialogDriver::Set([target](QDialog& dialog) {
        auto& files = static_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.objectName(), QStringLiteral("dlgFile"));
        files.selectFile(target);
        dialog.accept();
    });
    const std::optional<QString> path = OrvoS()->FileDialogsService()->SaveFileName(
        QStringLiteral("Išsaugoti"), QStringLiteral("Tekstas (*.txt)"), target);
    ASSERT_TRUE(path.has_value());
    EXPECT_EQ(*path, target);
}

TEST_F(DesktopTest, PrintPreviewShowsThePagesAndSavesTheDocument) {
    const QByteArray pdf = twoPagePdf();
    const QString target = dir_.filePath(QStringLiteral("orderis.pdf"));
    QString pages;
    DialogDriver::Set([&](QDialog& dialog) {
        if (dialog.objectName() == QLatin1String("dlgFile")) {
            auto& files = static_cast<QFileDialog&>(dialog);
            files.selectFile(target);
            dialog.accept();
            return;
        }
        pages = dialog.findChild<QLabel*>(QStringLiteral("lblStatus"))->text();
        EXPECT_EQ(static_cast<PdfPreviewDialog&>(dialog).PageCount(), 2);
        DialogDriver::Click(dialog, QStringLiteral("cmdSave"));
        DialogDriver::Click(dialog, QStringLiteral("cmdClose"));
    });
    EXPECT_TRUE(OrvoS()->PrintPreviewService()->ShowPdf(pdf, QStringLiteral("Spaudinys"),
                                                        QStringLiteral("orderis.pdf")));
    EXPECT_EQ(pages, QStringLiteral("Puslapių: 2"));
    QFile saved(target);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), pdf);
}

TEST_F(DesktopTest, PrintPreviewOfABrokenDocumentCannotBeSaved) {
    bool saveEnabled = true;
    QString status;
    DialogDriver::Set([&](QDialog& dialog) {
        saveEnabled = DialogDriver::Click(dialog, QStringLiteral("cmdSave"));
        status = dialog.findChild<QLabel*>(QStringLiteral("lblStatus"))->text();
    });
    EXPECT_FALSE(OrvoS()->PrintPreviewService()->ShowPdf(QByteArray("ne PDF"),
                                                         QStringLiteral("Spaudinys"), {}));
    EXPECT_FALSE(saveEnabled);
    EXPECT_EQ(status, QStringLiteral("Dokumento perskaityti nepavyko."));
}

} // namespace orvo::ui::testing

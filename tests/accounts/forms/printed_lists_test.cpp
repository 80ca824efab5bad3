// The printed chart (ActRepAccPlan) and the printed templates (ActRepTemplates) shown in
// the report window, exported through its toolbar to PDF, RTF and Excel files named
// from the report's base name; the PDF's text is read back with pdftotext.
#include "forms_fixture.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/forms/account_plan_form.h"
#include "accounts/forms/account_plan_report_form.h"
#include "accounts/template_navigator.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <QToolButton>

namespace orvo::accounts_forms::testing {

namespace {

class PrintedListsTest : public FormsTest {
protected:
    // Answers the report window by clicking the export `button` and the file dialog
    // with `path`; the window's toolbar captions and the file name offered are kept.
    void ExportWith(const QString& button, const QString& path) {
        AnswerBoxes(QStringLiteral("cmdOK"), [this, button, path](QDialog& dialog) {
            if (dialog.objectName() == QLatin1String("frmPrintPreview")) {
                title_ = dialog.windowTitle();
                for (auto* b : dialog.findChildren<QToolButton*>())
                    captions_ << b->text();
                ui::DialogDriver::Click(dialog, button);
                return;
            }
            if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
                offered_ = files->selectedFiles().value(0);
                files->selectFile(path);
                static_cast<QDialog*>(files)->accept();
            }
        });
    }

    static QString PdfText(const QString& path) {
        QProcess p;
        p.start(QStringLiteral("pdftotext"),
                {QStringLiteral("-layout"), path, QStringLiteral("-")});
        if (!p.waitForFinished(30000))
            return QString();
        // The page's font joins "fi" into one glyph; compatibility form splits it again.
        return QString::fromUtf8(p.readAllStandardOutput())
            .normalized(QString::NormalizationForm_KC);
    }

    // Prints the chart and leaves its report window through the `button`.
    void PrintChartWith(const QString& button) {
        ExportWith(button, QString());
        const OrvoObjectUIPtr nav =
            session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400"));
        const ClickResult click = nav->ClickMenu(QStringLiteral("O0200400"), QString(),
                                                 UI0200400::kPrint, QStringLiteral("3"));
        ASSERT_EQ(click.Action, ClickResult::ShowForm);
        const auto form = std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject());
        ASSERT_TRUE(form);
        form->Show(true);
    }

    QString title_;
    QStringList captions_;
    QString offered_;
};

// The mail program the tests stand in for: it writes the arguments it was given, one a line.
class MailProgram {
public:
    explicit MailProgram(const QString& folder)
        : script_(folder + QStringLiteral("/mail.sh")),
          args_(folder + QStringLiteral("/args.txt")) {
        QFile f(script_);
        if (f.open(QIODevice::WriteOnly))
            f.write(
                QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1.part'\nmv '%1.part' '%1'\n")
                    .arg(args_)
                    .toUtf8());
        f.close();
        f.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        qputenv("ORVO_MAIL_COMMAND", script_.toUtf8());
    }
    ~MailProgram() { qunsetenv("ORVO_MAIL_COMMAND"); }

    // The arguments, once the program has run (it runs on its own, so it is waited for).
    QStringList Args() const {
        for (int i = 0; i < 100 && !QFile::exists(args_); ++i)
            QThread::msleep(50);
        QFile f(args_);
        if (!f.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QString script_;
    QString args_;
};

TEST_F(PrintedListsTest, PrintingTheChartWritesAPdfWithItsTitleAndItsClasses) {
    const QString path = dir_.filePath(QStringLiteral("planas.pdf"));
    ExportWith(QStringLiteral("cmdExportPDF"), path);
    const OrvoObjectUIPtr nav =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400"));
    const ClickResult click = nav->ClickMenu(QStringLiteral("O0200400"), QString(),
                                             UI0200400::kPrint, QStringLiteral("3"));
    ASSERT_EQ(click.Action, ClickResult::ShowForm);
    const auto form = std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject());
    ASSERT_TRUE(form);
    form->Show(true);
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(title_, QStringLiteral("Saskaitų planas"));
    EXPECT_EQ(captions_,
              (QStringList{QStringLiteral("Eksportas į RTF"), QStringLiteral("Eksportas į EXCEL"),
                           QStringLiteral("Eksportas į PDF"), QStringLiteral("Siųsti kaip PDF")}));
    EXPECT_EQ(QFileInfo(offered_).fileName(), QStringLiteral("Saskaita.pdf"));
    ASSERT_TRUE(QFile::exists(path));
    const QString text = PdfText(path);
    EXPECT_TRUE(text.contains(QStringLiteral("Saskaitų planas"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Trumpalaikis turtas"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Pirkėjų įsiskolinimai")));
}

TEST_F(PrintedListsTest, TheChartPrintsAClassInBoldWithoutItsType) {
    reports::ListReport report;
    QString error;
    ASSERT_TRUE(ActRepAccPlan::Build(QStringLiteral("All"), &report, &error))
        << error.toStdString();
    EXPECT_EQ(report.Title, QStringLiteral("Saskaitų planas"));
    EXPECT_EQ(report.BaseName, QStringLiteral("Saskaita"));
    bool sawClass = false;
    bool sawAccount = false;
    for (const reports::ReportRow& row : report.Rows) {
        if (row.Cells.value(0) == QLatin1String("2")) {
            sawClass = true;
            EXPECT_TRUE(row.Bold);
            EXPECT_EQ(row.Cells.value(2), QString());
        }
        if (row.Cells.value(0) == QLatin1String("4430")) {
            sawAccount = true;
            EXPECT_FALSE(row.Bold);
            EXPECT_EQ(row.Cells.value(2), QStringLiteral("K"));
        }
    }
    EXPECT_TRUE(sawClass);
    EXPECT_TRUE(sawAccount);
}

TEST_F(PrintedListsTest, TheEditorsPrintMenuExportsTheChartToRtfAndExcel) {
    const auto form = Open<FrmAccountPlan>(
        QStringLiteral("frmAccountPlan"),
        Object(QStringLiteral("O0200401") +
               Scalar(QStringLiteral("SELECT ID FROM Accounts WHERE Account='2'"))));
    ASSERT_TRUE(form);
    const QString rtf = dir_.filePath(QStringLiteral("planas"));
    ExportWith(QStringLiteral("cmdExportRTF"), rtf);
    form->Widget()->findChild<QAction*>(QStringLiteral("mnuPrint"))->trigger();
    EXPECT_TRUE(QFile::exists(rtf + QStringLiteral(".rtf")));
    QFile file(rtf + QStringLiteral(".rtf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("{\\rtf"));

    const QString xlsx = dir_.filePath(QStringLiteral("planas.xlsx"));
    ExportWith(QStringLiteral("cmdExportExcel"), xlsx);
    form->Print();
    ASSERT_TRUE(QFile::exists(xlsx));
    QFile book(xlsx);
    ASSERT_TRUE(book.open(QIODevice::ReadOnly));
    EXPECT_TRUE(book.read(2) == "PK");
}

TEST_F(PrintedListsTest, PrintingTheTemplatesWritesAPdfWithGroupsAndTemplates) {
    const QString path = dir_.filePath(QStringLiteral("sablonai.pdf"));
    ExportWith(QStringLiteral("cmdExportPDF"), path);
    const OrvoObjectUIPtr nav =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201600"));
    ASSERT_TRUE(nav);
    const ClickResult click = nav->ClickMenu(QStringLiteral("O0201600"), QString(),
                                             UI0201600::kPrint, QStringLiteral("5"));
    ASSERT_EQ(click.Action, ClickResult::ShowForm);
    std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject())->Show(true);
    EXPECT_EQ(title_, QStringLiteral("Šablonai"));
    const QString text = PdfText(path);
    for (const char* expected : {"Šablonai", "Pavadinimas", "Debetas", "Kreditas", "Koeficijentas",
                                 "Kasos operacijos", "Prekių pardavimas su PVM", "0,21"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected << "\n"
                                                                << text.toStdString();
}

} // namespace

TEST_F(PrintedListsTest, SendingTheChartAsPdfHandsTheDocumentToTheMailProgram) {
    const MailProgram mail(dir_.path());
    PrintChartWith(QStringLiteral("cmdSendPDF"));
    EXPECT_TRUE(Boxes().isEmpty());
    const QStringList args = mail.Args();
    ASSERT_EQ(args.size(), 4) << args.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(args.mid(0, 3),
              (QStringList{QStringLiteral("--subject"), QStringLiteral("Saskaitų planas"),
                           QStringLiteral("--attach")}));
    EXPECT_EQ(QFileInfo(args.at(3)).fileName(), QStringLiteral("Saskaita.pdf"));
    const QString text = PdfText(args.at(3));
    EXPECT_TRUE(text.contains(QStringLiteral("Trumpalaikis turtas"))) << text.toStdString();
}

TEST_F(PrintedListsTest, SendingWithoutAMailProgramSaysWhereThePdfWasKept) {
    qputenv("ORVO_MAIL_COMMAND", QByteArray("/nera/tokios/programos"));
    PrintChartWith(QStringLiteral("cmdSendPDF"));
    qunsetenv("ORVO_MAIL_COMMAND");
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    const QString text = boxes.first().Text;
    EXPECT_TRUE(text.contains(QStringLiteral("nerasta"))) << text.toStdString();
    const int at = text.indexOf(QStringLiteral("PDF failas išsaugotas: "));
    ASSERT_GE(at, 0) << text.toStdString();
    const QString kept = text.mid(at + 23).trimmed();
    EXPECT_TRUE(QFile::exists(kept)) << kept.toStdString();
}

} // namespace orvo::accounts_forms::testing

// The pickers over lists whose rows are groups: the demo book keeps its templates inside
// two template groups, and the pickers open them, so the group picker offers the groups
// and the object picker the templates inside them.
#include "desktop_fixture.h"

#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "ui/services/qt_pickers.h"

#include <QLineEdit>

namespace orvo::ui::testing {

namespace {

QStringList texts(const QList<ObjectPickerDialog::Entry>& entries) {
    QStringList out;
    for (const ObjectPickerDialog::Entry& e : entries)
        out << e.Text;
    return out;
}

} // namespace

TEST_F(DesktopTest, GroupPickerOffersTheTemplateGroups) {
    const auto groups = window_->Services().Pickers->GroupEntries(QStringLiteral("O0201600"));
    const QStringList shown = texts(groups);
    EXPECT_TRUE(shown.contains(QStringLiteral("Pagrindiniai šablonai")))
        << shown.join('|').toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("Kasos operacijos")));
    for (const ObjectPickerDialog::Entry& e : groups)
        EXPECT_TRUE(e.OIDR.startsWith(QStringLiteral("O0201600"))) << e.OIDR.toStdString();
    // Templates themselves are no groups.
    EXPECT_FALSE(shown.contains(QStringLiteral("Pirkėjo apmokėjimas į banką")));
}

TEST_F(DesktopTest, ObjectPickerOffersTheTemplatesInsideTheirGroupsAndNoGroup) {
    const QStringList shown =
        texts(window_->Services().Pickers->ObjectEntries(QStringLiteral("O0201600"), {}, {}));
    EXPECT_TRUE(shown.contains(QStringLiteral("Pirkėjo apmokėjimas į banką")))
        << shown.join('|').toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("Grynųjų įnešimas į banką")));
    EXPECT_FALSE(shown.contains(QStringLiteral("Pagrindiniai šablonai")));
    EXPECT_EQ(shown.size(), QSet<QString>(shown.begin(), shown.end()).size());
}

TEST_F(DesktopTest, FilterNarrowsTheTemplatesOfEveryGroup) {
    QStringList shown = texts(window_->Services().Pickers->ObjectEntries(
        QStringLiteral("O0201600"), {}, QStringLiteral("Name LIKE '*banką*'")));
    shown.sort();
    EXPECT_EQ(shown, QStringList({"Grynųjų įnešimas į banką", "Pirkėjo apmokėjimas į banką"}));
}

TEST_F(DesktopTest, PickingATemplateInAGroupAnswersItsReferenceAndName) {
    DialogDriver::Set([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch"))
            ->setText(QStringLiteral("Grynųjų paėmimas"));
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    const QString answer = OrvoS()->PickersService()->PickObject(
        QStringLiteral("O0201600"), QStringLiteral("Pasirinkite šabloną..."), {}, {});
    EXPECT_TRUE(answer.startsWith(QStringLiteral("O0201600"))) << answer.toStdString();
    EXPECT_TRUE(answer.endsWith(QStringLiteral("_Grynųjų paėmimas iš banko")))
        << answer.toStdString();
}

} // namespace orvo::ui::testing

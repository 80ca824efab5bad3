// The shared painting of entry rows and the adapters through which the shared routines
// fill real combos and lists.
#include "operation_forms_fixture.h"

#include "frame/catalogue.h"
#include "ui/widgets/entry_list_painter.h"
#include "ui/widgets/qt_check_list.h"
#include "ui/widgets/qt_combo_control.h"
#include "ui/widgets/qt_list_control.h"

namespace orvo::ui::testing {

TEST(EntryListPainter, StatesPaintBlueBoldGreyAndGreyWithABoldMark) {
    App();
    QTreeWidget list;
    EntryListPainter::SetColumns(&list, {"Data", "Debeto b/s", "Kredito b/s", "Suma"});
    QTreeWidgetItem* blue = EntryListPainter::AddBRRow(&list, "a", {"2024.03.15", "2410"}, 1);
    QTreeWidgetItem* grey = EntryListPainter::AddBRRow(&list, "b", {"2024.03.15", "2410"}, 2);
    QTreeWidgetItem* marked = EntryListPainter::AddBRRow(&list, "c", {"2024.03.15"}, 3);
    // Columns beyond the first without text hold a single blank.
    EXPECT_EQ(blue->text(2), QStringLiteral(" "));
    EXPECT_EQ(blue->text(3), QStringLiteral(" "));
    EXPECT_EQ(blue->foreground(0).color(), QColor(0, 0, 255));
    EXPECT_TRUE(blue->font(1).bold());
    EXPECT_EQ(grey->foreground(1).color(), EntryListPainter::GreyText());
    EXPECT_FALSE(grey->font(1).bold());
    EXPECT_NE(grey->foreground(0).color(), EntryListPainter::GreyText());
    EXPECT_TRUE(marked->font(1).bold());
    EXPECT_EQ(marked->foreground(2).color(), EntryListPainter::GreyText());
    EXPECT_EQ(QtListControl::KeyOf(marked), QStringLiteral("c"));
    EXPECT_EQ(EntryListPainter::Headers().size(), 16);
    EXPECT_EQ(EntryListPainter::Headers().last(), QStringLiteral("Apmokamos operacijos"));
}

TEST(QtComboControl, SharedRoutinesFillARealComboAndChooseOnlyWhatIsAsked) {
    App();
    QComboBox combo;
    combo.setEditable(true);
    QtComboControl control(&combo);
    DictionaryPtr accounts = Dictionary::Create();
    accounts->Add("2410", Value(QStringLiteral("Pirkėjų įsiskolinimai")));
    accounts->Add("5000", Value(QStringLiteral("Pardavimo pajamos")));
    Catalogue::FillAccountCombo(control, accounts, QStringLiteral("?"));
    EXPECT_EQ(combo.count(), 2);
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_TRUE(combo.currentText().isEmpty());
    Catalogue::FillAccountCombo(control, accounts, QStringLiteral("5000"));
    EXPECT_EQ(combo.currentText(), QStringLiteral("5000 Pardavimo pajamos"));
    control.SetText(QStringLiteral("5000"));
    EXPECT_TRUE(Catalogue::CheckAccountInList(control, accounts, true, false));
    EXPECT_EQ(combo.currentText(), QStringLiteral("5000 Pardavimo pajamos"));

    QComboBox currencies;
    QtComboControl currencyControl(&currencies);
    DictionaryPtr rates = Dictionary::Create();
    rates->Add("USD", Value(1.08));
    Catalogue::FillCurrencyCombo(currencyControl, rates, QStringLiteral("GBP"));
    EXPECT_EQ(currencies.currentText(), QStringLiteral("   "));
}

TEST(QtCheckList, AddresseeKindsAreTickedWhenNamedInTheSelection) {
    App();
    QTreeWidget list;
    QtCheckList control(&list);
    const RecordsetPtr rows =
        Recordset::Create({FieldDef::Make(QStringLiteral("FOID"), FieldType::VarWChar, 8),
                           FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 50)});
    for (const auto& [foid, name] :
         {std::pair{"O0000100", "Įmonė"}, std::pair{"O0001402", "Asmuo"}}) {
        rows->AddNew();
        rows->SetField(QStringLiteral("FOID"), Value(QString::fromUtf8(foid)));
        rows->SetField(QStringLiteral("Name"), Value(QString::fromUtf8(name)));
        rows->Update();
    }
    Catalogue::FillAddresseeChecks(control, rows, QStringLiteral("O0001402"));
    ASSERT_EQ(list.topLevelItemCount(), 2);
    EXPECT_EQ(list.topLevelItem(0)->checkState(0), Qt::Unchecked);
    EXPECT_EQ(list.topLevelItem(1)->checkState(0), Qt::Checked);
    EXPECT_EQ(control.Key(1), QStringLiteral("O0001402"));
    EXPECT_EQ(control.Text(0), QStringLiteral("Įmonė"));
}

} // namespace orvo::ui::testing

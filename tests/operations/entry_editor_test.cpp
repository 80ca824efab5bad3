// What the entry card decides apart from its widgets: the row it shows, the base sum
// from a side's currency (divided under a euro base, multiplied under any other), the
// question on a changed rate, the checks of a save in their order with the field that
// takes the focus, and the save into the entry with its currency and addressee rows.
#include "host_stand_ins.h"

#include "frame/memory_combo_control.h"
#include "operations/entry_editor.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class EntryEditorTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        bo->handlers.insert("GetCurrencyList", [](const QString&, const Value&) {
            return BOResult::Of(Value(
                Table({F("Code"), F("BaseCurrency"), F("Rate"), F("CurrencyRate")},
                      {{"EUR", 1, 1.0, 1.0}, {"USD", 0, 0.8, 1.25}, {"GBP", 0, 1.16, 0.862069}})));
        });
    }

    // The card on an entry, loaded.
    std::unique_ptr<EntryEditor> card(const QString& guid) {
        auto editor = std::make_unique<EntryEditor>(op, accountD, accountC, currD, currC);
        editor->Entries = Entries();
        editor->GUID = guid;
        EXPECT_TRUE(editor->Load());
        return editor;
    }
    QString addEntry(const ValueArray& parameters) {
        const ValueResult r = AddBR(parameters);
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        return r.Value.toString();
    }
    RecordsetPtr nestedOf(const QString& guid, const char* name) {
        EXPECT_TRUE(GoToEntry(guid));
        return Entries()->Field(QString::fromLatin1(name)).toRecordset();
    }

    MemoryComboControl accountD, accountC, currD, currC;
};

} // namespace

TEST_F(EntryEditorTest, CardShowsTheEntryWithAccountNamesAndTheBaseCurrencyLabel) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const auto editor = card(guid);
    EXPECT_EQ(editor->SumLabel(), "Suma EUR");
    EXPECT_EQ(accountD.Text(), "2410 Pirkėjų skolos");
    EXPECT_EQ(accountC.Text(), "5000 Pardavimų pajamos");
    EXPECT_EQ(editor->Suma, "100,00");
    EXPECT_EQ(currD.Items(), QStringList({"   ", "USD", "GBP"}));
    EXPECT_EQ(currD.Text(), "   ");
    // The opening balances are offered as the pseudo-account "0".
    EXPECT_TRUE(editor->Accounts->Exists("0"));
    EXPECT_EQ(editor->Accounts->Item("0").toString(), "Pradiniai likučiai");
}

TEST_F(EntryEditorTest, DebitInDollarsAndCreditInBaseCurrencyWriteOneCurrencyRowOfSign1) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const auto editor = card(guid);
    currD.SetText("USD");
    editor->CurrencyChanged(EntryEditor::Debit);
    EXPECT_EQ(editor->Sides[EntryEditor::Debit].Rate, "1,250000000");
    editor->Sides[EntryEditor::Debit].Sum = "125";
    editor->SideLeft(EntryEditor::Debit);
    EXPECT_EQ(editor->Suma, "100,00");
    ASSERT_TRUE(editor->Save());
    const RecordsetPtr currencies = nestedOf(guid, "BRCurrency");
    ASSERT_EQ(currencies->RecordCount(), 1);
    currencies->MoveFirst();
    EXPECT_EQ(currencies->Field("Sign").toInt32(), 1);
    EXPECT_EQ(currencies->Field("FCurrencyCode").toString(), "USD");
    EXPECT_DOUBLE_EQ(currencies->Field("SumCurr").toDouble(), 125.0);
    EXPECT_DOUBLE_EQ(currencies->Field("RateCurr").toDouble(), 0.8);
    EXPECT_DOUBLE_EQ(Entries()->Field("CurrencyRateD").toDouble(), 1.25);
    EXPECT_TRUE(Entries()->Field("CurrencyRateC").isNull());
    EXPECT_EQ(editor->Result, 1);
}

TEST_F(EntryEditorTest, RateUnderAEuroBaseDividesAndUnderAnyOtherBaseMultiplies) {
    const QString guid = addEntry({"2410", "5000", 1.0, ValueArray{}});
    const auto editor = card(guid);
    editor->Sides[EntryEditor::Debit].Sum = "100";
    editor->Sides[EntryEditor::Debit].Rate = "1,25";
    editor->SideLeft(EntryEditor::Debit);
    EXPECT_EQ(editor->Suma, "80,00");
    editor->BaseIsEuro = false;
    editor->SideLeft(EntryEditor::Debit);
    EXPECT_EQ(editor->Suma, "125,00");
    // A zero in either leaves the base sum alone.
    editor->Sides[EntryEditor::Debit].Rate = "0";
    editor->SideLeft(EntryEditor::Debit);
    EXPECT_EQ(editor->Suma, "125,00");
}

TEST_F(EntryEditorTest, SameCodeOnBothSidesAtDifferentRatesPassesWhenBothGiveTheBaseSum) {
    const QString guid = addEntry({"2410", "5000", 80.0, ValueArray{}});
    const auto editor = card(guid);
    currD.SetText("USD");
    currC.SetText("USD");
    editor->Sides[EntryEditor::Debit] = {"1,25", "100", "USD"};
    editor->Sides[EntryEditor::Credit] = {"1,5", "120", "USD"};
    ASSERT_TRUE(editor->Save()) << editor->LastCheck.Message.toStdString();
    const RecordsetPtr currencies = nestedOf(guid, "BRCurrency");
    EXPECT_EQ(currencies->RecordCount(), 2);
    EXPECT_TRUE(messages->boxes.isEmpty());
}

TEST_F(EntryEditorTest, RestrictedCardLetsAnAddresseeBeSetWhileEverySumStays) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}, qint16(1), "USD", 1.25});
    const auto editor = card(guid);
    editor->Restricted = true;
    editor->CurrenciesEditable = false;
    for (const char* field : {"txtSuma", "cmbAccountD", "cmbAccountC", "dtpDate", "txtSumCurrD",
                              "txtRateCurrD", "cmbCurrD"})
        EXPECT_FALSE(editor->FieldEnabled(QString::fromLatin1(field))) << field;
    // Fields with no value stay open, and the currencies reopen when the caller allows.
    EXPECT_TRUE(editor->FieldEnabled("txtSumCurrC"));
    editor->CurrenciesEditable = true;
    EXPECT_TRUE(editor->FieldEnabled("txtSumCurrD"));

    editor->SetAddressee(EntryEditor::Debit, "O0000100", "O000010012", "UAB Ąžuolas");
    ASSERT_TRUE(editor->Save()) << editor->LastCheck.Message.toStdString();
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 125.0);
    const RecordsetPtr props = nestedOf(guid, "BRProperties");
    ASSERT_EQ(props->RecordCount(), 1);
    props->MoveFirst();
    EXPECT_EQ(props->Field("FOIDR").toString(), "O000010012");
    EXPECT_EQ(props->Field("Sign").toInt32(), 1);
    const RecordsetPtr currencies = nestedOf(guid, "BRCurrency");
    ASSERT_EQ(currencies->RecordCount(), 1);
    currencies->MoveFirst();
    EXPECT_DOUBLE_EQ(currencies->Field("SumCurr").toDouble(), 100.0);
}

TEST_F(EntryEditorTest, ChecksComeInTheirOrderEachWithItsFieldToFocus) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const auto editor = card(guid);
    editor->VATIndication = 1;
    EXPECT_EQ(editor->Check().Message, "Nurodykite prekybos operacijos tipą.");
    EXPECT_EQ(editor->Check().Focus, "cmbTradeOperationTypes");
    editor->VATIndication = 0;

    accountD.SetText("9999");
    EXPECT_EQ(editor->Check().Message, "Klaidinga balansinės sąskaitos reikšmė!");
    EXPECT_EQ(editor->Check().Focus, "cmbAccountD");
    accountD.SetText("2410");
    accountC.SetText("?");
    EXPECT_EQ(editor->Check().Focus, "cmbAccountC");
    accountC.SetText("5000");

    editor->Sides[EntryEditor::Credit].Sum = "50";
    EXPECT_EQ(editor->Check().Message, "Nenurodytas valiutos tipas!");
    EXPECT_EQ(editor->Check().Focus, "cmbCurrC");
    currC.SetText("GBP");
    EXPECT_EQ(editor->Check().Message, "Nenurodytas valiutos kursas!");
    EXPECT_EQ(editor->Check().Focus, "txtRateCurrC");
    editor->Sides[EntryEditor::Credit].Rate = "1";
    EXPECT_EQ(editor->Check().Message, "Suma bazine valiuta neatitinka sumai valiuta pagal kursą!");
    EXPECT_EQ(editor->Check().Focus, "txtSumCurrC");
    editor->Sides[EntryEditor::Credit].Sum = "100";
    EXPECT_TRUE(editor->Check().Passed);
    EXPECT_EQ(messages->Count(MessageKind::Warning), 11);
}

TEST_F(EntryEditorTest, DemandedAddresseeMissingRefusesTheSave) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const RecordsetPtr demands = nestedOf(guid, "RequiredAddr");
    demands->AddNew();
    demands->SetField("Sign", qint16(1));
    demands->SetField("FOID", "O0000100");
    demands->Update();
    const auto editor = card(guid);
    ASSERT_EQ(editor->Lines[EntryEditor::Debit].size(), 1);
    EXPECT_TRUE(editor->Lines[EntryEditor::Debit].first().Demanded);
    EXPECT_FALSE(editor->Save());
    EXPECT_EQ(editor->LastCheck.Message, "Nenurodyti būtini adresatai!");
    // A demanded line keeps its place when its value is removed.
    editor->SetAddressee(EntryEditor::Debit, "O0000100", "O000010012", "UAB Ąžuolas");
    editor->ClearAddressee(EntryEditor::Debit, 0);
    EXPECT_EQ(editor->Lines[EntryEditor::Debit].size(), 1);
    editor->SetAddressee(EntryEditor::Debit, "O0000100", "O000010012", "UAB Ąžuolas");
    EXPECT_TRUE(editor->Save());
}

TEST_F(EntryEditorTest, ChangedCurrencyAsksBeforeReplacingATypedRate) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const auto editor = card(guid);
    editor->Sides[EntryEditor::Debit].Rate = "1,1";
    editor->Sides[EntryEditor::Debit].Sum = "110";
    currD.SetText("USD");
    messages->answers.enqueue(false);
    editor->CurrencyChanged(EntryEditor::Debit);
    ASSERT_FALSE(messages->boxes.isEmpty());
    EXPECT_EQ(messages->boxes.last().text, "Pakeisti valiutos kursą ?\n1,1 -> 1,250000000");
    EXPECT_EQ(editor->Sides[EntryEditor::Debit].Rate, "1,1");
    EXPECT_EQ(editor->Suma, "100,00");
    currD.SetText("GBP");
    messages->answers.enqueue(true);
    editor->CurrencyChanged(EntryEditor::Debit);
    EXPECT_EQ(editor->Sides[EntryEditor::Debit].Rate, "0,862069000");
    EXPECT_EQ(editor->Suma, "127,60");
}

TEST_F(EntryEditorTest, TariffAboveZeroSetsTheVATFlagAndTheVATSum) {
    const QString guid = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const auto editor = card(guid);
    EXPECT_FALSE(editor->VATEnabled());
    editor->TradeTypeChanged(3);
    EXPECT_TRUE(editor->VATEnabled());
    editor->TariffChanged("21,00");
    EXPECT_TRUE(editor->VATFlag);
    EXPECT_EQ(editor->VATIndication, 1);
    editor->TariffChanged("abc");
    EXPECT_FALSE(editor->VATFlag);
    editor->TariffChanged("21");
    ASSERT_TRUE(editor->Save());
    EXPECT_EQ(Entries()->Field("TradeOperationType").toInt32(), 3);
    EXPECT_DOUBLE_EQ(Entries()->Field("VATTariff").toDouble(), 21.0);
    EXPECT_EQ(Entries()->Field("VATIndication").toInt32(), 1);
}

TEST_F(EntryEditorTest, NavigationAsksBeforeLeavingAChangedEntry) {
    const QString first = addEntry({"2410", "5000", 100.0, ValueArray{}});
    const QString second = addEntry({"2710", "2410", 40.0, ValueArray{}});
    const auto editor = card(first);
    editor->Changed = true;
    messages->answers.enqueue(false);
    EXPECT_FALSE(editor->Move(1));
    EXPECT_EQ(messages->boxes.last().text, "Palikti be išsaugojimo ?");
    EXPECT_EQ(editor->GUID, first);
    messages->answers.enqueue(true);
    EXPECT_TRUE(editor->Move(1));
    EXPECT_EQ(editor->GUID, second);
    EXPECT_EQ(editor->Suma, "40,00");
    EXPECT_FALSE(editor->Move(1));
}

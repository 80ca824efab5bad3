// What the operation editor decides apart from its widgets: the group's form, the
// enabling of its commands, the save in its order (the comment cut to 1000, a second
// save after a refused one), the entry card's aftermath, copying over months, deleting
// and the change of date.
#include "host_stand_ins.h"
#include "test_forms.h"

#include "core/null_readers.h"
#include "core/rounding.h"
#include "operations/operation_editor.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class OperationEditorTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        op->SetField("BROperGroupID", qint32(3));
        bo->handlers.insert("GetParent", [this](const QString& parameters, const Value&) {
            parentAsked = parameters;
            return BOResult::Of(Value(
                Table({F("OIDR"), F("FormOID"), F("Preview"), F("Serija"), F("SerijaIndication"),
                       F("ANMask"), F("BRTemplateID"), F("DefaultTemplateID"), F("Parameters")},
                      {{"O02014003", formOid, "Pardavimai", "PR", qint16(1), "", qint32(0),
                        qint32(0), groupParameters}})));
        });
        bo->handlers.insert("DO0201500_SaveOrvoObject", [this](const QString&, const Value& data) {
            received = data.toRecordset();
            if (refuse)
                return BOResult::Failure(555, "Laikotarpis užrakintas");
            return BOResult::Of(Value(Table({F("OIDR"), F("LockGUID")}, {{"O0201500123", "{L}"}})));
        });
    }

    // The entries' dates, sums and texts, in order.
    QList<QDate> entryDates() const {
        QList<QDate> out;
        const RecordsetPtr br = Entries();
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            out.append(br->Field("DateD").toDate());
        return out;
    }
    QList<double> entrySums() const {
        QList<double> out;
        const RecordsetPtr br = Entries();
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            out.append(br->Field("SumA").toDouble());
        return out;
    }
    QStringList entryInfos() const {
        QStringList out;
        const RecordsetPtr br = Entries();
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            out.append(br->Field("Info").toString());
        return out;
    }

    QString addEntry(const ValueArray& parameters) {
        const ValueResult r = AddBR(parameters);
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        return r.Value.toString();
    }

    // The entry card as a plain window that answers `flag`.
    void cardAnswers(qint16 flag) {
        forms->Register("frmBROperRecord", [flag]() {
            auto card = std::make_shared<ScriptedEntryCard>();
            card->flag = flag;
            return card;
        });
    }

    QString formOid = "O0201500";
    QString groupParameters;
    QString parentAsked;
    bool refuse = false;
    RecordsetPtr received;
};

} // namespace

TEST_F(OperationEditorTest, GroupOfAnotherFormRefusesTheOperationWithAWarningAndNoGroup) {
    formOid = "O0201501";
    OperationEditor editor(op);
    editor.Load(false);
    ASSERT_EQ(messages->boxes.size(), 1);
    EXPECT_EQ(messages->boxes.first().kind, MessageKind::Warning);
    EXPECT_EQ(messages->boxes.first().text, "Grupės tipas neatitinka operacijos tipo!");
    EXPECT_TRUE(editor.GroupRef.isEmpty());
    EXPECT_TRUE(editor.GroupText.isEmpty());
    // Without a group nothing can be written, whatever else holds.
    addEntry({"2410", "5000", 100.0, ValueArray{}});
    editor.PaintEntries();
    editor.Changed = true;
    EXPECT_FALSE(editor.CanWrite());
}

TEST_F(OperationEditorTest, GroupOfPlainOperationsGivesItsSeriesAndTitleOfANewOperation) {
    OperationEditor editor(op);
    editor.Load(false);
    EXPECT_TRUE(messages->boxes.isEmpty());
    EXPECT_EQ(parentAsked, "'O02014003'");
    EXPECT_EQ(editor.GroupRef, "O02014003");
    EXPECT_EQ(editor.GroupText, "Pardavimai");
    EXPECT_EQ(editor.Title, " Nauja finansinė operacija");
    EXPECT_EQ(editor.Serija, "PR");
    EXPECT_TRUE(editor.ShowSeries);
    EXPECT_FALSE(editor.PrintEnabled);
    EXPECT_FALSE(editor.ProtocolEnabled);
    EXPECT_FALSE(editor.ViewsEnabled);
    // An operation with no date takes today.
    EXPECT_EQ(editor.Date, QDate(2024, 3, 15));
}

TEST_F(OperationEditorTest, WriteIsOnlyForAChangedOperationInAGroupWhoseEntriesAllPass) {
    OperationEditor editor(op);
    editor.Load(false);
    EXPECT_FALSE(editor.CanWrite());
    const QString bad = addEntry({"2410", "5000", 0.0, ValueArray{}});
    editor.PaintEntries();
    editor.Changed = true;
    ASSERT_EQ(editor.Rows.size(), 1);
    EXPECT_FALSE(editor.Rows.first().Passed);
    EXPECT_FALSE(editor.CanWrite());
    op->Methods("DeleteBR", {bad, qint16(9)});
    addEntry({"2410", "5000", 10.0, ValueArray{}});
    editor.PaintEntries();
    EXPECT_TRUE(editor.Rows.first().Passed);
    EXPECT_TRUE(editor.CanWrite());
    editor.Changed = false;
    EXPECT_FALSE(editor.CanWrite());
    // A new operation offers neither a new one nor undo.
    EXPECT_FALSE(editor.CanNew());
    EXPECT_FALSE(editor.CanCancel());
}

TEST_F(OperationEditorTest, EntryRowsCarryDateAccountsSumCurrencyAndAddressees) {
    addEntry({"2410", "5000", 100.0, ValueArray{qint16(1), "O000010012", "UAB Ąžuolas"}, qint16(1),
              "USD", 0.92});
    OperationEditor editor(op);
    editor.Load(false);
    ASSERT_EQ(editor.Rows.size(), 1);
    EXPECT_EQ(editor.Rows.first().Cells,
              QStringList({"2024.03.15", "2410", "5000", "92,00", "USD", "", "UAB Ąžuolas"}));
}

TEST_F(OperationEditorTest, CommentOf1001CharactersIsStoredAs1000AndTheScreenFollows) {
    OperationEditor editor(op);
    editor.Load(false);
    addEntry({"2410", "5000", 10.0, ValueArray{}});
    editor.PaintEntries();
    editor.Comment = QString(1001, QLatin1Char('k'));
    ASSERT_TRUE(editor.Write());
    EXPECT_TRUE(editor.CommentCut);
    EXPECT_EQ(editor.Comment.size(), 1000);
    ASSERT_TRUE(received);
    EXPECT_EQ(received->Field("Comment").toString().size(), 1000);
    EXPECT_EQ(received->Field("BROperGroupID").toInt32(), 3);
    EXPECT_EQ(received->Field("Serija").toString(), "PR");
    EXPECT_EQ(received->Field("VATRegisterIndication").toInt32(), 0);
    // Stored: the title, the print and the protocol follow, and nothing is changed.
    EXPECT_EQ(editor.Title, " Finansinė operacija");
    EXPECT_TRUE(editor.PrintEnabled);
    EXPECT_FALSE(editor.Changed);
    EXPECT_EQ(op->Preview(), "2024.03.15 ");
}

TEST_F(OperationEditorTest, SecondWriteAfterAFailedSaveWorksOnTheSameRows) {
    OperationEditor editor(op);
    editor.Load(false);
    addEntry({"2410", "5000", 10.0, ValueArray{qint16(1), "O000010012", "UAB Ąžuolas"}});
    addEntry({"2710", "2410", 4.5, ValueArray{}});
    editor.PaintEntries();
    editor.Changed = true;
    editor.Number = "A-1";
    refuse = true;
    EXPECT_FALSE(editor.Write());
    ASSERT_FALSE(messages->boxes.isEmpty());
    EXPECT_EQ(messages->boxes.last().kind, MessageKind::Error);
    EXPECT_EQ(messages->boxes.last().text, "Įrašymas neatliktas !\n\nLaikotarpis užrakintas");
    EXPECT_TRUE(editor.IsNew());
    EXPECT_EQ(Entries()->RecordCount(), 2);

    refuse = false;
    ASSERT_TRUE(editor.Write());
    ASSERT_TRUE(received);
    const RecordsetPtr br = received->Field("BR").toRecordset();
    ASSERT_TRUE(br);
    EXPECT_EQ(br->RecordCount(), 2);
    EXPECT_EQ(received->Field("Number").toString(), "A-1");
    EXPECT_EQ(op->OIDR(), "O0201500123");
}

TEST_F(OperationEditorTest, CopyingAnEntryDatedJanuary31GivesTheLastDayOfFebruary) {
    const QString guid = addEntry({"6110", "4430", 300.0, ValueArray{}, qint16(0), "   ", 0.0, 0.0,
                                   "   ", 0.0, "Nuoma", "", "2024.01.31"});
    OperationEditor editor(op);
    editor.Load(false);
    CopyByMonthsChoice choice;
    choice.Months = 2;
    choice.Sum = 300.0;
    choice.Day = 31;
    ASSERT_TRUE(editor.CopyEntryByMonths(guid, choice));
    const QList<QDate> dates = entryDates();
    const QList<double> sums = entrySums();
    EXPECT_EQ(dates, QList<QDate>({QDate(2024, 1, 31), QDate(2024, 2, 29)}));
    EXPECT_EQ(sums, QList<double>({300.0, 300.0}));
}

TEST_F(OperationEditorTest, PeriodSumSpreadOverMonthsKeepsTheTotalExactInTheLastMonth) {
    const QString guid = addEntry({"6110", "4430", 100.0, ValueArray{}, qint16(0), "   ", 0.0, 0.0,
                                   "   ", 0.0, "Nuoma", "", "2024.01.10"});
    OperationEditor editor(op);
    editor.Load(false);
    CopyByMonthsChoice choice;
    choice.Months = 3;
    choice.Sum = 100.0;
    choice.PeriodSum = true;
    choice.LastDay = true;
    choice.WithComment = true;
    ASSERT_TRUE(editor.CopyEntryByMonths(guid, choice));
    const QList<QDate> dates = entryDates();
    const QList<double> sums = entrySums();
    const QStringList infos = entryInfos();
    EXPECT_EQ(dates, QList<QDate>({QDate(2024, 1, 31), QDate(2024, 2, 29), QDate(2024, 3, 31)}));
    EXPECT_EQ(sums, QList<double>({33.33, 33.33, 33.34}));
    EXPECT_EQ(infos, QStringList({"Nuoma", "Nuoma", "Nuoma"}));
}

TEST_F(OperationEditorTest,
       CurrencyEntrySpreadOverMonthsSpreadsItsCurrencyAndKeepsEachMonthAtItsRate) {
    // 100.00 USD at 0.92 on the debit side: 92.00 EUR.
    const QString guid = addEntry({"6110", "4430", 100.0, ValueArray{}, qint16(1), "USD", 0.92, 0.0,
                                   "   ", 0.0, "Nuoma", "", "2024.01.10"});
    OperationEditor editor(op);
    editor.Load(false);
    CopyByMonthsChoice choice;
    choice.Months = 3;
    choice.Sum = 92.0;
    choice.PeriodSum = true;
    choice.LastDay = true;
    ASSERT_TRUE(editor.CopyEntryByMonths(guid, choice));
    QList<double> sums;
    QList<double> currencySums;
    QStringList codes;
    const RecordsetPtr br = Entries();
    for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
        sums.append(br->Field("SumA").toDouble());
        const RecordsetPtr currency = br->Field("BRCurrency").toRecordset();
        ASSERT_TRUE(currency);
        ASSERT_EQ(currency->RecordCount(), 1);
        currency->MoveFirst();
        codes.append(currency->Field("FCurrencyCode").toString());
        currencySums.append(currency->Field("SumCurr").toDouble());
        // Every month's base sum is its currency amount at the entry's rate.
        EXPECT_DOUBLE_EQ(
            Round(currency->Field("SumCurr").toDouble() * currency->Field("RateCurr").toDouble() +
                      0.00001,
                  2),
            br->Field("SumA").toDouble());
    }
    EXPECT_EQ(codes, QStringList({"USD", "USD", "USD"}));
    // The dollars are spread exactly; the last month takes the rest.
    EXPECT_EQ(currencySums, QList<double>({33.33, 33.33, 33.34}));
    EXPECT_EQ(sums, QList<double>({30.66, 30.66, 30.67}));
}

TEST_F(OperationEditorTest, CancelledFreeEntryIsRemovedAndAWrittenOneAsksForTheWrite) {
    OperationEditor editor(op);
    editor.Load(false);
    cardAnswers(0);
    EXPECT_EQ(editor.AddFreeEntry(), OperationEditor::CardFollowup::None);
    EXPECT_EQ(Entries()->RecordCount(), 0);
    EXPECT_TRUE(editor.Rows.isEmpty());

    cardAnswers(2);
    EXPECT_EQ(editor.AddFreeEntry(), OperationEditor::CardFollowup::Write);
    EXPECT_EQ(Entries()->RecordCount(), 1);
    cardAnswers(3);
    EXPECT_EQ(editor.OpenEntryCard(editor.FirstEntryGUID()),
              OperationEditor::CardFollowup::WriteAndNew);
}

TEST_F(OperationEditorTest, DeletingAsksFirstAndNoKeepsTheEntries) {
    addEntry({"2410", "5000", 10.0, ValueArray{}});
    const QString second = addEntry({"2710", "2410", 4.5, ValueArray{}});
    OperationEditor editor(op);
    editor.Load(false);
    messages->answers.enqueue(false);
    EXPECT_FALSE(editor.DeleteEntries({second}));
    EXPECT_EQ(Entries()->RecordCount(), 2);
    EXPECT_EQ(messages->boxes.last().text, "Ar tikrai norite panaikinti?");
    messages->answers.enqueue(true);
    EXPECT_TRUE(editor.DeleteEntries({second}));
    EXPECT_EQ(editor.Rows.size(), 1);
    messages->answers.enqueue(true);
    EXPECT_TRUE(editor.DeleteAllEntries());
    EXPECT_TRUE(editor.Rows.isEmpty());
}

TEST_F(OperationEditorTest, NewDateMovesTheEntriesWhenTheUserSaysYes) {
    addEntry({"2410", "5000", 10.0, ValueArray{}});
    OperationEditor editor(op);
    editor.Load(false);
    messages->answers.enqueue(true);
    ASSERT_TRUE(editor.ChangeDate(QDate(2024, 3, 20)));
    EXPECT_EQ(messages->boxes.last().text, "Pakeisti įrašų datas į operacijos datą?");
    EXPECT_EQ(op->Field("DateD").toDate(), QDate(2024, 3, 20));
    EXPECT_EQ(editor.Rows.first().Cells.first(), "2024.03.20");
    EXPECT_TRUE(editor.Changed);
}

TEST_F(OperationEditorTest, ModalEditorIsReadOnlyWithNoNewOperation) {
    OperationEditor editor(op);
    editor.Load(true);
    EXPECT_NE(editor.Rights.Read, 0);
    EXPECT_EQ(editor.Rights.Edit, 0);
    EXPECT_EQ(editor.Rights.Create, 0);
    EXPECT_FALSE(editor.GroupAndCommentPickEnabled);
    EXPECT_FALSE(editor.ViewsEnabled);
    EXPECT_FALSE(editor.CanNew());
}

TEST_F(OperationEditorTest, GroupParametersBecomeTheNextActionRunOnceByTheTimer) {
    groupParameters = "Skolų dengimas";
    OperationEditor editor(op);
    editor.Load(false);
    EXPECT_EQ(editor.NextAction, "Skolų dengimas");
    EXPECT_TRUE(editor.TimerPending);
    // No window of that name here: the user is told, and the timer is spent.
    EXPECT_EQ(editor.RunNextAction(), OperationEditor::CardFollowup::None);
    EXPECT_FALSE(editor.TimerPending);
    ASSERT_FALSE(messages->boxes.isEmpty());
    EXPECT_EQ(messages->boxes.last().kind, MessageKind::Warning);
    EXPECT_EQ(messages->boxes.last().text, "Nepavyko atidaryti lango frmDebtsCover!");
}

TEST_F(OperationEditorTest, TemplateNextActionOpensTheCardOfTheFirstEntry) {
    const QString first = addEntry({"2410", "5000", 10.0, ValueArray{}});
    addEntry({"2710", "2410", 4.5, ValueArray{}});
    OperationEditor editor(op);
    editor.Load(false);
    QString opened;
    bool restricted = true;
    forms->Register("frmBROperRecord", [&opened, &restricted]() {
        auto card = std::make_shared<ScriptedEntryCard>();
        card->flag = 1;
        card->onShow = [&opened, &restricted](ScriptedEntryCard& c) {
            opened = c.guid;
            restricted = c.restricted;
        };
        return card;
    });
    editor.NextAction = "TemplateBR";
    EXPECT_EQ(editor.RunNextAction(), OperationEditor::CardFollowup::None);
    EXPECT_EQ(opened, first);
    // With the edit right the card is not restricted.
    EXPECT_FALSE(restricted);
    EXPECT_TRUE(editor.NextAction.isEmpty());
    EXPECT_TRUE(editor.Changed);
}

namespace {

// A settling window that sees the operation's comment and dates and comments it anew.
class RedatingWindow : public test::PlainForm {
public:
    RedatingWindow() : PlainForm("frmCurrencyInfluence") {}
    void Show(bool modal) override {
        PlainForm::Show(modal);
        seenComment = GetOrvoObjectUIO()->Field("Comment").toString();
        GetOrvoObjectUIO()->SetField("DateD", Value(QDate(2024, 3, 31)));
        GetOrvoObjectUIO()->SetField("Comment", Value(QStringLiteral("Valiutos perskaičiavimas")));
    }
    QString seenComment;
};

} // namespace

TEST_F(OperationEditorTest, SettlingWindowSeesTheEditorsCommentAndItsDateAndCommentAreKept) {
    OperationEditor editor(op);
    editor.Load(false);
    editor.Comment = "Kaip įvesta";
    auto window = std::make_shared<RedatingWindow>();
    forms->Register("frmCurrencyInfluence", [window]() { return window; });
    ASSERT_TRUE(editor.OpenSettlementForm("Valiutos perskaičiavimas"));
    EXPECT_EQ(window->seenComment, "Kaip įvesta");
    EXPECT_EQ(editor.Date, QDate(2024, 3, 31));
    EXPECT_EQ(editor.Comment, "Valiutos perskaičiavimas");
    EXPECT_TRUE(editor.Changed);
}

// AddTemplate on a template stored in a real book, on both backends: each line of the
// template becomes an entry with the line's share of the sum, a fixed addressee of the
// template is laid on its entry as it stands, a kind without one is asked of the user
// through the object picker, and an entry against the opening balances (account 0) is
// stored and read back.
#include "operations_book.h"

#include "accounts/template_registration.h"
#include "host/session/scripted_choices.h"
#include "host/storage/database.h"

namespace orvo::test {
namespace {

class TemplateApplyTest : public OperationsBook {
protected:
    void SetUp() override {
        OperationsBook::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterTemplateClasses();
        for (const char* account : {"2410", "4492", "5000", "6000"})
            ASSERT_TRUE(
                session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Accounts (Account, Name) VALUES (?, ?)"),
                             {Value(QString::fromLatin1(account)),
                              Value(QStringLiteral("Sąskaita ") + QString::fromLatin1(account))})
                    .ok());
        // The debit of 2410 demands a firm.
        ASSERT_TRUE(
            session_->Db()
                .Execute(QStringLiteral("INSERT INTO BRRequiredAddr (AccountID, Sign, FOID) "
                                        "SELECT ID, 1, 'O0000100' FROM Accounts WHERE "
                                        "Account = '2410'"))
                .ok());
        const host::QueryResult firm =
            session_->Db().Query(QStringLiteral("INSERT INTO Firms (Name) VALUES (?) RETURNING ID"),
                                 {Value(QStringLiteral("UAB Ąžuolas"))});
        ASSERT_TRUE(firm.ok()) << firm.Text.toStdString();
        firm_ = QStringLiteral("O0000100%1").arg(static_cast<qint64>(firm.Scalar().toDouble()));
    }

    struct Line {
        const char* debit;
        const char* credit;
        double factor;
        // A demanded firm on the debit side: none, of the kind only, or this one fixed.
        enum { NoFirm, AnyFirm, FixedFirm } firm = NoFirm;
    };

    // A template stored through its data object; its ID.
    qint64 StoreTemplate(const QVector<Line>& lines) {
        OrvoObjectUIOPtr t = Object(QStringLiteral("O0201600"));
        EXPECT_TRUE(t);
        if (!t)
            return 0;
        t->SetField(QStringLiteral("Name"), QStringLiteral("Pardavimas"));
        const RecordsetPtr acc = t->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
        const RecordsetPtr addr = t->Field(QStringLiteral("BRTemplateAddr")).toRecordset();
        for (const Line& line : lines) {
            const QString guid = t->GetGUID();
            acc->AddNew();
            acc->SetField(QStringLiteral("GUID"), guid);
            acc->SetField(QStringLiteral("AccountD"), QString::fromLatin1(line.debit));
            acc->SetField(QStringLiteral("AccountC"), QString::fromLatin1(line.credit));
            acc->SetField(QStringLiteral("Factor"), line.factor);
            acc->Update();
            if (line.firm == Line::NoFirm)
                continue;
            addr->AddNew();
            addr->SetField(QStringLiteral("BRTemplateAccGUID"), guid);
            addr->SetField(QStringLiteral("Sign"), Value(qint16(1)));
            addr->SetField(QStringLiteral("FOID"), QStringLiteral("O0000100"));
            if (line.firm == Line::FixedFirm)
                addr->SetField(QStringLiteral("FOIDR"), firm_);
            addr->Update();
        }
        const ResultRecord saved = t->Save();
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        return NumberOf(t->OIDR());
    }

    OrvoObjectUIOPtr Apply(qint64 templateId, double sum) {
        OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 5, 4)));
        const ValueResult r =
            op->Methods(QStringLiteral("AddTemplate"),
                        {Value(qint32(templateId)), Value(sum), Value(ValueArray{})});
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        return op;
    }

    // Entries as "AccountD|AccountC|SumA|BRTemplateAccID>0|addressees".
    static QStringList EntryRows(const OrvoObjectUIOPtr& op) {
        QStringList out;
        const RecordsetPtr br = Entries(op);
        for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
            QStringList props;
            const RecordsetPtr p = br->Field(QStringLiteral("BRProperties")).toRecordset();
            for (p->MoveFirst(); !p->Eof(); p->MoveNext())
                props << p->Field(QStringLiteral("Sign")).toString() + QLatin1Char(' ') +
                             p->Field(QStringLiteral("FOIDR")).toString() + QLatin1Char(' ') +
                             p->Field(QStringLiteral("ShowString")).toString();
            out << QStringLiteral("%1|%2|%3|%4|%5")
                       .arg(br->Field(QStringLiteral("AccountD")).toString(),
                            br->Field(QStringLiteral("AccountC")).toString(),
                            QString::number(br->Field(QStringLiteral("SumA")).toDouble(), 'f', 2),
                            br->Field(QStringLiteral("BRTemplateAccID")).toInt32() > 0
                                ? QStringLiteral("line")
                                : QStringLiteral("none"),
                            props.join(QLatin1Char(',')));
        }
        return out;
    }

    QString firm_;
};

TEST_P(TemplateApplyTest, TemplateOfThreeEntriesWithAFixedAddresseeIsSavedAndReadBack) {
    const qint64 id = StoreTemplate(
        {{"2410", "5000", 1.0, Line::FixedFirm}, {"5000", "4492", 0.21}, {"6000", "0", 0.5}});
    ASSERT_GT(id, 0);
    OrvoObjectUIOPtr op = Apply(id, 100.01);
    const QStringList expected = {"2410|5000|100.01|line|1 " + firm_ + " UAB Ąžuolas",
                                  "5000|4492|21.00|line|", "6000|0|50.01|line|"};
    EXPECT_EQ(EntryRows(op), expected);
    // The fixed addressee is taken: nobody is asked.
    EXPECT_TRUE(session_->Choices()->TakeAsked().isEmpty());

    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const OrvoObjectUIOPtr back = Object(op->OIDR());
    ASSERT_TRUE(back);
    EXPECT_EQ(EntryRows(back), expected);
    EXPECT_EQ(Dump(Entries(back)), Dump(Entries(op)));
}

TEST_P(TemplateApplyTest, KindWithoutFixedAddresseeIsAskedThroughThePicker) {
    const qint64 id = StoreTemplate({{"2410", "5000", 1.0, Line::AnyFirm}});
    session_->Choices()->QueuePick(firm_ + QStringLiteral("_UAB Ąžuolas"));
    OrvoObjectUIOPtr op = Apply(id, 10.0);
    EXPECT_EQ(session_->Choices()->TakeAsked().size(), 1);
    EXPECT_EQ(EntryRows(op), QStringList({"2410|5000|10.00|line|1 " + firm_ + " UAB Ąžuolas"}));
    ASSERT_TRUE(op->Save().ok());

    // An addressee given by the caller meets the demand: nobody is asked.
    OrvoObjectUIOPtr given = Object(QStringLiteral("O0201500"));
    given->SetField(QStringLiteral("DateD"), Value(QDate(2026, 5, 4)));
    const ValueResult r = given->Methods(
        QStringLiteral("AddTemplate"),
        {Value(qint32(id)), Value(10.0),
         Value(ValueArray{Value(qint16(1)), Value(firm_), Value(QStringLiteral("Ąžuolas"))})});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_TRUE(session_->Choices()->TakeAsked().isEmpty());
    EXPECT_EQ(EntryRows(given), QStringList({"2410|5000|10.00|line|1 " + firm_ + " Ąžuolas"}));
}

TEST_P(TemplateApplyTest, PickerCancelledLeavesTheDemandOpenAndTheSaveNamesIt) {
    const qint64 id = StoreTemplate({{"2410", "5000", 1.0, Line::AnyFirm}});
    OrvoObjectUIOPtr op = Apply(id, 10.0);
    EXPECT_EQ(session_->Choices()->TakeAsked().size(), 1);
    EXPECT_EQ(EntryRows(op), QStringList({"2410|5000|10.00|line|"}));
    const ResultRecord refused = op->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Nenurodyti būtini adresatai!")))
        << refused.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 0);
}

TEST_P(TemplateApplyTest, FactorOfHalfOnSumOf100_01Gives50_01) {
    const qint64 id = StoreTemplate({{"6000", "5000", 0.5}});
    const OrvoObjectUIOPtr op = Apply(id, 100.01);
    EXPECT_EQ(EntryRows(op), QStringList({"6000|5000|50.01|line|"}));
}

TEST_P(TemplateApplyTest, EntryWithAccountZeroPostsAgainstOpeningBalances) {
    const qint64 id = StoreTemplate({{"0", "5000", 1.0}, {"6000", "0", 1.0}});
    OrvoObjectUIOPtr op = Apply(id, 250.0);
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(
        Count(QStringLiteral("SELECT COUNT(*) FROM BR WHERE AccountD = '0' OR AccountC = '0'")), 2);
    const OrvoObjectUIOPtr back = Object(op->OIDR());
    EXPECT_EQ(EntryRows(back), QStringList({"0|5000|250.00|line|", "6000|0|250.00|line|"}));
    // Any other account outside the chart is still refused.
    const qint64 unknown = StoreTemplate({{"9999", "5000", 1.0}});
    OrvoObjectUIOPtr bad = Apply(unknown, 1.0);
    EXPECT_EQ(bad->Save().Code, 777);
}

ORVO_STORAGE_BACKENDS(TemplateApplyTest);

} // namespace
} // namespace orvo::test

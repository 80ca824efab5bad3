// Operations stored in a real book through UIO0201500 and the host's methods, on SQLite
// and PostgreSQL: round trips, exact sums, the optimistic lock, refusals that store
// nothing, deletion, the shared record numbers, related entries and the change log.
#include "operations_book.h"

#include "core/rounding.h"
#include "host/storage/database.h"

#include <QSet>

namespace orvo::test {
namespace {

const QString kBlank = QStringLiteral("   ");

class OperationsStoreTest : public OperationsBook {
protected:
    // A new operation dated 2026-03-31 in group 7 with `entries` entries of 3.6·k EUR:
    // odd ones 4·k USD at 0.9, even ones 3·k GBP at 1.2, on both sides, with a firm on the
    // debit side and a person on the credit side.
    OrvoObjectUIOPtr BuildOperation(int entries, const QString& kind = QStringLiteral("O0201500")) {
        OrvoObjectUIOPtr op = Object(kind);
        EXPECT_TRUE(op);
        if (!op)
            return op;
        op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 3, 31)));
        op->SetField(QStringLiteral("BROperGroupID"), Value(qint32(7)));
        op->SetField(QStringLiteral("Number"), QStringLiteral("260331-KO-0001"));
        op->SetField(QStringLiteral("Serija"), QStringLiteral("KO"));
        op->SetField(QStringLiteral("Comment"), QStringLiteral("Sąskaita už žąsų pūkus"));
        op->SetField(QStringLiteral("Parameters"), QStringLiteral("1#2#Vilnius"));
        op->SetField(QStringLiteral("VATRegisterIndication"), Value(qint16(2)));
        for (int k = 1; k <= entries; ++k) {
            const bool usd = k % 2 == 1;
            const ValueResult r = AddBR(
                op, {QStringLiteral("2410"), QStringLiteral("5000"), usd ? 4.0 * k : 3.0 * k,
                     ValueArray{qint16(1), QStringLiteral("O000010042"),
                                QStringLiteral("UAB „Ąžuolas“"), qint16(-1),
                                QStringLiteral("O000140277"), QStringLiteral("Jonas Jonaitis")},
                     qint16(0), usd ? QStringLiteral("USD") : QStringLiteral("GBP"),
                     usd ? 0.9 : 1.2, 0.0, kBlank, 0.0, QStringLiteral("Įrašas %1").arg(k)});
            EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        }
        return op;
    }
};

TEST_P(OperationsStoreTest, OperationWithManyEntriesCurrenciesAndAddresseesReadsBackIdentically) {
    OrvoObjectUIOPtr op = BuildOperation(40);
    ASSERT_TRUE(op);
    ASSERT_EQ(Entries(op)->RecordCount(), 40);

    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    // What the object holds after its save (a flag left empty now holds the book's
    // default) is what a fresh read gives.
    const QString before = Dump(op->RsFields());
    EXPECT_TRUE(before.contains(QStringLiteral("SumA=72.000000")));
    ASSERT_GE(op->OIDR().size(), 9);
    EXPECT_TRUE(op->OIDR().startsWith(QStringLiteral("O0201500")));

    OrvoObjectUIOPtr again = Object(op->OIDR());
    ASSERT_TRUE(again);
    EXPECT_EQ(Dump(again->RsFields()), before);
    const RecordsetPtr br = Entries(again);
    ASSERT_EQ(br->RecordCount(), 40);
    br->MoveFirst();
    const RecordsetPtr currency = Nested(br, "BRCurrency");
    ASSERT_EQ(currency->RecordCount(), 2);
    currency->MoveFirst();
    EXPECT_EQ(currency->Field(QStringLiteral("FCurrencyCode")).toString(), QStringLiteral("USD"));
    EXPECT_EQ(currency->Field(QStringLiteral("SumCurr")).toDouble(), 4.0);
    EXPECT_EQ(Nested(br, "BRProperties")->RecordCount(), 2);
    br->MoveNext();
    const RecordsetPtr second = Nested(br, "BRCurrency");
    ASSERT_EQ(second->RecordCount(), 2);
    second->MoveFirst();
    EXPECT_EQ(second->Field(QStringLiteral("FCurrencyCode")).toString(), QStringLiteral("GBP"));
    EXPECT_EQ(second->Field(QStringLiteral("SumCurr")).toDouble(), 6.0);
    EXPECT_EQ(second->Field(QStringLiteral("RateCurr")).toDouble(), 1.2);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ?"),
                    {Value(double(NumberOf(op->OIDR())))}),
              40);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRCurrency")), 80);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRProperties")), 80);
}

TEST_P(OperationsStoreTest, AddBRInUsdAtARateAgainstEuroIsStoredAndReadBackToTheCent) {
    OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
    ASSERT_TRUE(op);
    op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 11, 20)));
    const double usd = 1234.57;
    const double rate = 0.917353;
    const double sumA = Round(usd * rate + 0.00001, 2);
    const ValueResult added =
        AddBR(op, {QStringLiteral("2710"), QStringLiteral("5000"), usd, ValueArray{}, qint16(1),
                   QStringLiteral("USD"), rate, sumA, QStringLiteral("EUR"), 1.0});
    ASSERT_EQ(added.Code, 0) << added.Text.toStdString();
    ASSERT_TRUE(op->Save().ok());
    const QString before = Dump(op->RsFields());

    // The book holds the base sum as exact hundredths.
    EXPECT_EQ(Count(QStringLiteral("SELECT SumA FROM BR")), qRound64(sumA * 100));
    OrvoObjectUIOPtr again = Object(op->OIDR());
    ASSERT_TRUE(again);
    EXPECT_EQ(Dump(again->RsFields()), before);
    const RecordsetPtr br = Entries(again);
    br->MoveFirst();
    EXPECT_EQ(br->Field(QStringLiteral("SumA")).toDouble(), sumA);
    const RecordsetPtr currency = Nested(br, "BRCurrency");
    bool usdSide = false;
    for (currency->MoveFirst(); !currency->Eof(); currency->MoveNext()) {
        if (currency->Field(QStringLiteral("FCurrencyCode")).toString() != QStringLiteral("USD"))
            continue;
        usdSide = true;
        EXPECT_EQ(currency->Field(QStringLiteral("Sign")).toInt32(), 1);
        EXPECT_EQ(currency->Field(QStringLiteral("SumCurr")).toDouble(), usd);
        EXPECT_EQ(currency->Field(QStringLiteral("RateCurr")).toDouble(), rate);
    }
    EXPECT_TRUE(usdSide);
}

TEST_P(OperationsStoreTest, DocumentKindSharesTheTablesAndKeepsTheOperationReference) {
    OrvoObjectUIOPtr order = BuildOperation(1, QStringLiteral("O0201504"));
    ASSERT_TRUE(order);
    EXPECT_EQ(order->Field(QStringLiteral("OType")).toString(), QStringLiteral("O0201504"));
    order->SetField(QStringLiteral("FOIDR"), QStringLiteral("O0201504"));
    ASSERT_TRUE(order->Save().ok());
    EXPECT_TRUE(order->OIDR().startsWith(QStringLiteral("O0201500")));
    OrvoObjectUIOPtr again = Object(order->OIDR());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->Field(QStringLiteral("OType")).toString(), QStringLiteral("O0201504"));
    EXPECT_EQ(again->Field(QStringLiteral("FOIDR")).toString(), QStringLiteral("O0201504"));
}

TEST_P(OperationsStoreTest, OperationWithoutADocumentIsStoredUnderItsOwnKindAndOpensAgain) {
    OrvoObjectUIOPtr op = BuildOperation(1);
    ASSERT_TRUE(op);
    EXPECT_TRUE(op->Field(QStringLiteral("FOIDR")).toString().isEmpty());
    ASSERT_TRUE(op->Save().ok());
    OrvoObjectUIOPtr again = Object(op->OIDR());
    ASSERT_TRUE(again);
    // Its kind chooses the operation editor; without it the record would read as deleted.
    EXPECT_EQ(again->Field(QStringLiteral("FOIDR")).toString(), QStringLiteral("O0201500"));
}

TEST_P(OperationsStoreTest, SaveFromACopyReadBeforeAnotherUsersSaveIsRefusedAndOverwritesNothing) {
    OrvoObjectUIOPtr op = BuildOperation(2);
    ASSERT_TRUE(op->Save().ok());
    const QString oidr = op->OIDR();

    // A second user's session on the same book.
    host::SessionResult other = host::HostSession::Open(location_, host::OpenMode::Existing);
    ASSERT_TRUE(other.ok()) << other.Text.toStdString();
    OrvoObjectUIOPtr theirs = other.Session->Services()->ObjectsService()->GetObjectUIO(oidr);
    OrvoObjectUIOPtr mine = Object(oidr);
    ASSERT_TRUE(theirs && mine);

    theirs->SetField(QStringLiteral("Comment"), QStringLiteral("Pataisė kitas"));
    const ResultRecord first = theirs->Save();
    ASSERT_TRUE(first.ok()) << first.Text.toStdString();

    mine->SetField(QStringLiteral("Comment"), QStringLiteral("Mano pataisa"));
    Entries(mine)->MoveFirst();
    Entries(mine)->SetField(QStringLiteral("Info"), QStringLiteral("Mano įrašas"));
    Entries(mine)->Update();
    const ResultRecord second = mine->Save();
    EXPECT_NE(second.Code, 0);
    EXPECT_TRUE(second.Text.contains(QStringLiteral("jau pakeitė kitas naudotojas")))
        << second.Text.toStdString();

    OrvoObjectUIOPtr stored = Object(oidr);
    EXPECT_EQ(stored->Field(QStringLiteral("Comment")).toString(), QStringLiteral("Pataisė kitas"));
    Entries(stored)->MoveFirst();
    EXPECT_EQ(Entries(stored)->Field(QStringLiteral("Info")).toString(),
              QStringLiteral("Įrašas 1"));
    // The refused copy keeps what its user typed.
    EXPECT_EQ(mine->Field(QStringLiteral("Comment")).toString(), QStringLiteral("Mano pataisa"));
    other.Session.reset();
}

TEST_P(OperationsStoreTest, RefusedNewOperationStoresNothingAndKeepsEveryRowForAnotherAttempt) {
    OrvoObjectUIOPtr op = BuildOperation(3);
    const RecordsetPtr br = Entries(op);
    br->MoveFirst();
    br->MoveNext();
    br->SetField(QStringLiteral("SumA"), -5.0);
    br->Update();

    const ResultRecord refused = op->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Klaidinga sumos reikšmė!\n2410 5000")))
        << refused.Text.toStdString();
    EXPECT_LT(op->OIDR().size(), 9);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 0);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 0);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRCurrency")), 0);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROperLog")), 0);

    const RecordsetPtr kept = Entries(op);
    ASSERT_EQ(kept->RecordCount(), 3);
    for (kept->MoveFirst(); !kept->Eof(); kept->MoveNext()) {
        EXPECT_EQ(Nested(kept, "BRCurrency")->RecordCount(), 2);
        EXPECT_EQ(Nested(kept, "BRProperties")->RecordCount(), 2);
    }
    // Put right, the same object stores.
    kept->MoveFirst();
    kept->MoveNext();
    kept->SetField(QStringLiteral("SumA"), 7.2);
    kept->Update();
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 3);
}

TEST_P(OperationsStoreTest, ZeroSumOnAStoredOperationIsRefusedAndTheStoredSumStays) {
    OrvoObjectUIOPtr op = BuildOperation(1);
    ASSERT_TRUE(op->Save().ok());
    OrvoObjectUIOPtr again = Object(op->OIDR());
    Entries(again)->MoveFirst();
    Entries(again)->SetField(QStringLiteral("SumA"), 0.0);
    Entries(again)->Update();
    const ResultRecord refused = again->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Klaidinga sumos reikšmė!")));
    EXPECT_EQ(Count(QStringLiteral("SELECT SumA FROM BR")), 360);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROperLog")), 1);
}

TEST_P(OperationsStoreTest, CurrencySideWithoutRateIsRefused) {
    OrvoObjectUIOPtr op = BuildOperation(1);
    const RecordsetPtr br = Entries(op);
    br->MoveFirst();
    const RecordsetPtr currency = Nested(br, "BRCurrency");
    currency->MoveFirst();
    currency->SetField(QStringLiteral("RateCurr"), 0.0);
    currency->Update();
    const ResultRecord refused = op->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Nenurodytas valiutos kursas!")))
        << refused.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 0);
}

TEST_P(OperationsStoreTest, DeletingAnOperationRemovesItsEntriesCurrenciesAndAddressees) {
    OrvoObjectUIOPtr keep = BuildOperation(2);
    ASSERT_TRUE(keep->Save().ok());
    OrvoObjectUIOPtr gone = BuildOperation(3);
    ASSERT_TRUE(gone->Save().ok());
    ASSERT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 5);

    ASSERT_TRUE(Navigator()->DeleteOrvoObject(gone->OIDR()));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 2);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRCurrency")), 4);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRProperties")), 4);
    EXPECT_FALSE(Object(gone->OIDR()));
    EXPECT_TRUE(Object(keep->OIDR()));
}

TEST_P(OperationsStoreTest, OperationsAndTheirEntriesNeverShareANumber) {
    QSet<qint64> numbers;
    int drawn = 0;
    for (int i = 0; i < 3; ++i) {
        OrvoObjectUIOPtr op = BuildOperation(3);
        ASSERT_TRUE(op->Save().ok());
        numbers.insert(NumberOf(op->OIDR()));
        ++drawn;
        const RecordsetPtr br = Entries(op);
        for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
            const qint64 id = static_cast<qint64>(br->Field(QStringLiteral("ID")).toDouble());
            EXPECT_GT(id, 0);
            numbers.insert(id);
            ++drawn;
        }
    }
    EXPECT_EQ(numbers.size(), drawn);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers o JOIN BR b ON b.ID = o.ID")), 0);
}

TEST_P(OperationsStoreTest, AnEntryReferenceReadsTheOperationThatHoldsIt) {
    OrvoObjectUIOPtr op = BuildOperation(2);
    ASSERT_TRUE(op->Save().ok());
    const RecordsetPtr br = Entries(op);
    br->MoveFirst();
    br->MoveNext();
    const QString entry = QStringLiteral("O0201500") +
                          QString::number(static_cast<qint64>(br->Field("ID").toDouble()));

    OrvoObjectUIOPtr holder = Object(entry);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->OIDR(), op->OIDR());
    EXPECT_EQ(Entries(holder)->RecordCount(), 2);

    BOResult r;
    session_->BO()->Run(QStringLiteral("DO0201500_GetOperationOfEntry"),
                        QStringLiteral("'") + entry + QStringLiteral("'"), QString(), r);
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    const RecordsetPtr rows = r.Data.toRecordset();
    ASSERT_EQ(rows->RecordCount(), 1);
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("OIDR")).toString(), op->OIDR());
    EXPECT_EQ(rows->Field(QStringLiteral("Preview")).toString(),
              QStringLiteral("2026.03.31 260331-KO-0001 Sąskaita už žąsų pūkus"));
}

TEST_P(OperationsStoreTest, RelatedEntriesAreThoseOfOtherOperationsReferringToThisOnesEntries) {
    OrvoObjectUIOPtr debt = BuildOperation(2);
    ASSERT_TRUE(debt->Save().ok());
    Entries(debt)->MoveFirst();
    const QString ref = QStringLiteral("O0201500") +
                        QString::number(static_cast<qint64>(Entries(debt)->Field("ID").toDouble()));

    OrvoObjectUIOPtr payment = Object(QStringLiteral("O0201500"));
    payment->SetField(QStringLiteral("DateD"), Value(QDate(2026, 4, 2)));
    ASSERT_EQ(AddBR(payment, {QStringLiteral("2710"), QStringLiteral("2410"), 3.6,
                              ValueArray{qint16(-1), ref, QStringLiteral("Skola")}})
                  .Code,
              0);
    ASSERT_TRUE(payment->Save().ok());
    OrvoObjectUIOPtr unrelated = BuildOperation(1);
    ASSERT_TRUE(unrelated->Save().ok());

    const ValueResult related = debt->Properties(
        QStringLiteral("RelatedBR"), QStringLiteral("'") + debt->OIDR() + QStringLiteral("'"));
    ASSERT_EQ(related.Code, 0) << related.Text.toStdString();
    const RecordsetPtr rows = related.Value.toRecordset();
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->RecordCount(), 1);
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("OIDR")).toString(), payment->OIDR());
    EXPECT_EQ(rows->Field(QStringLiteral("FOIDR")).toString(), ref);
    EXPECT_EQ(rows->Field(QStringLiteral("Sign")).toInt32(), -1);
    EXPECT_EQ(rows->Field(QStringLiteral("SumA")).toDouble(), 3.6);

    // Nothing refers to the payment.
    const ValueResult none = payment->Properties(
        QStringLiteral("RelatedBR"), QStringLiteral("'") + payment->OIDR() + QStringLiteral("'"));
    ASSERT_EQ(none.Code, 0);
    EXPECT_EQ(none.Value.toRecordset()->RecordCount(), 0);
}

TEST_P(OperationsStoreTest, ChangeLogKeepsWhoCreatedChangedAndDeletedTheOperation) {
    OrvoObjectUIOPtr op = BuildOperation(1);
    ASSERT_TRUE(op->Save().ok());
    op->SetField(QStringLiteral("Comment"), QStringLiteral("Antras"));
    ASSERT_TRUE(op->Save().ok());

    const ValueResult log = op->Properties(QStringLiteral("GetBROperLog"),
                                           QStringLiteral("'") + op->OIDR() + QStringLiteral("'"));
    ASSERT_EQ(log.Code, 0) << log.Text.toStdString();
    RecordsetPtr rows = log.Value.toRecordset();
    ASSERT_EQ(rows->RecordCount(), 2);
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("User")).toString(), QStringLiteral("Administratorius"));
    EXPECT_EQ(rows->Field(QStringLiteral("Action")).toString(), QStringLiteral("Sukurta"));
    EXPECT_FALSE(rows->Field(QStringLiteral("Date")).isNull());
    rows->MoveNext();
    EXPECT_EQ(rows->Field(QStringLiteral("Action")).toString(), QStringLiteral("Pakeista"));

    const QString oidr = op->OIDR();
    ASSERT_TRUE(Navigator()->DeleteOrvoObject(oidr));
    BOResult after;
    session_->BO()->Run(QStringLiteral("GetBROperLog"), QStringLiteral("'") + oidr + "'", QString(),
                        after);
    ASSERT_EQ(after.Code, 0);
    rows = after.Data.toRecordset();
    ASSERT_EQ(rows->RecordCount(), 3);
    rows->MoveLast();
    EXPECT_EQ(rows->Field(QStringLiteral("Action")).toString(), QStringLiteral("Panaikinta"));
}

TEST_P(OperationsStoreTest, SaveStampsWhoCreatedAndWhoLastChangedTheOperation) {
    OrvoObjectUIOPtr op = BuildOperation(1);
    ASSERT_TRUE(op->Save().ok());
    OrvoObjectUIOPtr again = Object(op->OIDR());
    EXPECT_EQ(again->Field(QStringLiteral("CreatedByUserOIDR")).toString(),
              QStringLiteral("admin"));
    EXPECT_EQ(again->Field(QStringLiteral("CreatedByUserName")).toString(),
              QStringLiteral("Administratorius"));
    EXPECT_FALSE(again->Field(QStringLiteral("CreationDate")).isNull());
    EXPECT_EQ(again->Field(QStringLiteral("ChangedByUserName")).toString(),
              QStringLiteral("Administratorius"));
    EXPECT_FALSE(again->Field(QStringLiteral("CorrectionDate")).isNull());
}

TEST_P(OperationsStoreTest, ListGivesKindAndPreviewByDateAPageAtATimeAndByGroup) {
    for (int day = 5; day >= 1; --day) {
        OrvoObjectUIOPtr op =
            BuildOperation(1, day == 3 ? QStringLiteral("O0201502") : QStringLiteral("O0201500"));
        op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 5, day)));
        op->SetField(QStringLiteral("Number"), QString::number(day));
        op->SetField(QStringLiteral("Comment"), QString());
        op->SetField(QStringLiteral("BROperGroupID"), Value(qint32(day % 2 == 0 ? 8 : 9)));
        ASSERT_TRUE(op->Save().ok());
    }
    auto list = [&](const QString& params) {
        BOResult r;
        session_->BO()->Run(QStringLiteral("DO0201500_GetOrvoObjectList"), params, QString(), r);
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        QStringList out;
        const RecordsetPtr rs = r.Data.toRecordset();
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            out << rs->Field(QStringLiteral("OType")).toString() + QLatin1Char(' ') +
                       rs->Field(QStringLiteral("Preview")).toString();
        return out;
    };
    EXPECT_EQ(
        list(QStringLiteral("'O0201500','',''")),
        (QStringList{"O0201500 2026.05.01 1", "O0201500 2026.05.02 2", "O0201502 2026.05.03 3",
                     "O0201500 2026.05.04 4", "O0201500 2026.05.05 5"}));
    EXPECT_EQ(list(QStringLiteral("'O0201500','2','3'")),
              (QStringList{"O0201500 2026.05.02 2", "O0201502 2026.05.03 3"}));
    EXPECT_EQ(list(QStringLiteral("'O0201500','4',''")),
              (QStringList{"O0201500 2026.05.04 4", "O0201500 2026.05.05 5"}));
    EXPECT_EQ(list(QStringLiteral("'O02020008','',''")),
              (QStringList{"O0201500 2026.05.02 2", "O0201500 2026.05.04 4"}));
}

TEST_P(OperationsStoreTest, BlankOperationOfADocumentKindCarriesThatKind) {
    OrvoObjectUIOPtr blank = Object(QStringLiteral("O0201505"));
    ASSERT_TRUE(blank);
    EXPECT_LT(blank->OIDR().size(), 9);
    EXPECT_EQ(blank->Field(QStringLiteral("OType")).toString(), QStringLiteral("O0201505"));
    EXPECT_EQ(Entries(blank)->RecordCount(), 0);
}

ORVO_STORAGE_BACKENDS(OperationsStoreTest);

} // namespace
} // namespace orvo::test

// A group's computed debts: DO0201400_CreateFullSum keeps the open debts of the group's
// entries at a date, a new computation replaces the old, an empty date text deletes
// them, and DO0201400_GetGroupDebts shows what is kept; on both backends. The small
// catalogues of document and template types are read from the same step of the book.
#include "debts_fixture.h"

namespace orvo::host::testing {
namespace {

class GroupDebtsTest : public DebtsTest {
protected:
    qint64 AddGroup(const QString& name, const QString& parameters = QString(),
                    const QString& formOID = QStringLiteral("O0201500")) {
        const BOResult blank =
            Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400'"));
        EXPECT_TRUE(blank.ok()) << blank.Text.toStdString();
        const RecordsetPtr rs = blank.Data.toRecordset();
        if (!rs)
            return 0;
        rs->MoveFirst();
        rs->SetField(QStringLiteral("Name"), name);
        rs->SetField(QStringLiteral("FormOID"), formOID);
        rs->SetField(QStringLiteral("Parameters"), parameters);
        rs->Update();
        const BOResult saved =
            Call(QStringLiteral("DO0201400_SaveOrvoObject"), QStringLiteral("''"), Value(rs));
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        const RecordsetPtr out = saved.Data.toRecordset();
        if (!out)
            return 0;
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    // Moves the operation of the entry into the group, through the operation's own save.
    void IntoGroup(qint64 entryId, qint64 groupId) {
        const QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT BROperID FROM BR WHERE ID = ?"), {Value(double(entryId))});
        ASSERT_TRUE(q.ok() && q.RowCount() == 1);
        const QString oidr =
            QStringLiteral("O0201500%1").arg(static_cast<qint64>(q.At(0, 0).toDouble()));
        const BOResult read =
            Call(QStringLiteral("DO0201500_GetOrvoObject"), QStringLiteral("'%1'").arg(oidr));
        ASSERT_TRUE(read.ok()) << read.Text.toStdString();
        const RecordsetPtr rs = read.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("BROperGroupID"), Value(double(groupId)));
        rs->Update();
        const BOResult saved = Call(QStringLiteral("DO0201500_SaveOrvoObject"),
                                    QStringLiteral("'%1'").arg(oidr), Value(rs));
        ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    }

    int Computed(qint64 groupId, const QString& date) {
        const BOResult r = Call(QStringLiteral("DO0201400_CreateFullSum"),
                                QStringLiteral("%1,'%2'").arg(groupId).arg(date));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        const RecordsetPtr rs = r.Data.toRecordset();
        if (!rs || rs->RecordCount() != 1)
            return -1;
        rs->MoveFirst();
        return rs->Field(QStringLiteral("Count")).toInt32();
    }

    RecordsetPtr Kept(qint64 groupId) {
        const BOResult r =
            Call(QStringLiteral("DO0201400_GetGroupDebts"), QStringLiteral("%1").arg(groupId));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }
};

TEST_P(GroupDebtsTest, ComputedDebtsAreTheOpenDebtsOfTheGroupsEntriesAtTheDate) {
    const qint64 sales = AddGroup(QStringLiteral("Pardavimai"));
    const qint64 other = AddGroup(QStringLiteral("Kita"));
    const qint64 invoice = Invoice(kCustomer, 100, QDate(2024, 2, 1), QStringLiteral("S1"));
    const qint64 foreign = Invoice(kOtherCustomer, 40, QDate(2024, 2, 2), QStringLiteral("S2"));
    const qint64 paid = Payment(kCustomer, invoice, 30.25, QDate(2024, 2, 10));
    IntoGroup(invoice, sales);
    IntoGroup(paid, sales);
    IntoGroup(foreign, other);

    EXPECT_EQ(Computed(sales, QStringLiteral("2024.02.05")), 1);
    RecordsetPtr kept = Kept(sales);
    ASSERT_TRUE(kept);
    ASSERT_EQ(kept->RecordCount(), 1);
    kept->MoveFirst();
    EXPECT_EQ(Num(kept, "BRID"), double(invoice));
    EXPECT_EQ(kept->Field(QStringLiteral("DateAt")).toDate(), QDate(2024, 2, 5));
    EXPECT_EQ(Str(kept, "Account"), QStringLiteral("2410"));
    EXPECT_EQ(Str(kept, "FOIDR"), kCustomer);
    EXPECT_DOUBLE_EQ(Num(kept, "RestA"), 100.0);

    // After the payment the rest is what the payment left, in exact hundredths.
    EXPECT_EQ(Computed(sales, QStringLiteral("2024.02.28")), 1);
    kept = Kept(sales);
    ASSERT_EQ(kept->RecordCount(), 1);
    kept->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(kept, "RestA"), 69.75);
    EXPECT_EQ(kept->Field(QStringLiteral("DateAt")).toDate(), QDate(2024, 2, 28));
    EXPECT_EQ(session_->Db()
                  .Query(QStringLiteral("SELECT RestA FROM BROperGroupDebts"))
                  .Scalar()
                  .toInt32(),
              6975);
}

TEST_P(GroupDebtsTest, ANewComputationReplacesTheGroupsEarlierSnapshotOnly) {
    const qint64 sales = AddGroup(QStringLiteral("Pardavimai"));
    const qint64 other = AddGroup(QStringLiteral("Kita"));
    const qint64 first = Invoice(kCustomer, 10, QDate(2024, 1, 5), QStringLiteral("S1"));
    const qint64 second = Invoice(kCustomer, 20, QDate(2024, 3, 5), QStringLiteral("S2"));
    const qint64 foreign = Invoice(kOtherCustomer, 40, QDate(2024, 1, 6), QStringLiteral("S3"));
    IntoGroup(first, sales);
    IntoGroup(second, sales);
    IntoGroup(foreign, other);

    EXPECT_EQ(Computed(other, QStringLiteral("2024.12.31")), 1);
    EXPECT_EQ(Computed(sales, QStringLiteral("2024.12.31")), 2);
    EXPECT_EQ(Computed(sales, QStringLiteral("2024.01.31")), 1);
    const RecordsetPtr kept = Kept(sales);
    ASSERT_EQ(kept->RecordCount(), 1);
    kept->MoveFirst();
    EXPECT_EQ(Num(kept, "BRID"), double(first));
    EXPECT_EQ(Kept(other)->RecordCount(), 1);
}

TEST_P(GroupDebtsTest, AnEmptyDateTextDeletesTheGroupsSnapshotAndKeepsTheOthers) {
    const qint64 sales = AddGroup(QStringLiteral("Pardavimai"));
    const qint64 other = AddGroup(QStringLiteral("Kita"));
    IntoGroup(Invoice(kCustomer, 10, QDate(2024, 1, 5), QStringLiteral("S1")), sales);
    IntoGroup(Invoice(kOtherCustomer, 40, QDate(2024, 1, 6), QStringLiteral("S2")), other);
    ASSERT_EQ(Computed(sales, QStringLiteral("2024.12.31")), 1);
    ASSERT_EQ(Computed(other, QStringLiteral("2024.12.31")), 1);

    const BOResult cleared =
        Call(QStringLiteral("DO0201400_CreateFullSum"), QStringLiteral("%1,''").arg(sales));
    ASSERT_TRUE(cleared.ok()) << cleared.Text.toStdString();
    EXPECT_EQ(Kept(sales)->RecordCount(), 0);
    EXPECT_EQ(Kept(other)->RecordCount(), 1);
}

TEST_P(GroupDebtsTest, AGroupWithoutOpenDebtsKeepsNoRows) {
    const qint64 sales = AddGroup(QStringLiteral("Pardavimai"));
    const qint64 invoice = Invoice(kCustomer, 10, QDate(2024, 1, 5), QStringLiteral("S1"));
    const qint64 paid = Payment(kCustomer, invoice, 10, QDate(2024, 1, 9));
    IntoGroup(invoice, sales);
    IntoGroup(paid, sales);
    EXPECT_EQ(Computed(sales, QStringLiteral("2024.12.31")), 0);
    EXPECT_EQ(Kept(sales)->RecordCount(), 0);
}

TEST_P(GroupDebtsTest, AnUnknownGroupOrAWrongDateIsRefusedWithItsReason) {
    const qint64 sales = AddGroup(QStringLiteral("Pardavimai"));
    const BOResult unknown = Call(QStringLiteral("DO0201400_CreateFullSum"),
                                  QStringLiteral("%1,'2024.01.01'").arg(sales + 100));
    EXPECT_EQ(unknown.Code, 777);
    EXPECT_TRUE(unknown.Text.contains(QStringLiteral("nėra"))) << unknown.Text.toStdString();
    const BOResult wrong = Call(QStringLiteral("DO0201400_CreateFullSum"),
                                QStringLiteral("%1,'2024.02.30'").arg(sales));
    EXPECT_EQ(wrong.Code, 777);
    EXPECT_TRUE(wrong.Text.contains(QStringLiteral("2024.02.30"))) << wrong.Text.toStdString();
}

TEST_P(GroupDebtsTest, DocumentAndTemplateTypesAreReadFromTheBook) {
    const BOResult types = Call(QStringLiteral("DO0001602_GetDocumentTypes"));
    ASSERT_TRUE(types.ok()) << types.Text.toStdString();
    QStringList codes;
    const RecordsetPtr rs = types.Data.toRecordset();
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        codes << Str(rs, "Code");
    EXPECT_TRUE(codes.contains(QStringLiteral("SALE_INVOICE")));
    EXPECT_FALSE(codes.contains(QStringLiteral("RETURN_FROM_BUYER")));

    const BOResult templates = Call(QStringLiteral("DO0001612_GetTemplateTypes"));
    ASSERT_TRUE(templates.ok()) << templates.Text.toStdString();
    const RecordsetPtr tt = templates.Data.toRecordset();
    ASSERT_GT(tt->RecordCount(), 0);
    ASSERT_TRUE(tt->SetFilter(QStringLiteral("DocumentTypeCodes like '%PURCHASE_INVOICE%'")).ok());
    EXPECT_GT(tt->RecordCount(), 0);
    EXPECT_LT(tt->RecordCount(), tt->RowCountAll());
}

TEST_P(GroupDebtsTest, TheRelatedDocumentTypeIsTheStoredTypeTheGroupsParametersName) {
    const qint64 sale = AddGroup(QStringLiteral("Sutartys"), QStringLiteral("1#5|SALE_INVOICE"),
                                 QStringLiteral("O1000100"));
    const qint64 returns =
        AddGroup(QStringLiteral("Grąžinimai"), QStringLiteral("1#5|RETURN_FROM_BUYER"),
                 QStringLiteral("O1000100"));
    const BOResult a =
        Call(QStringLiteral("DO0201400_GetRelatedDocumentGroup"), QStringLiteral("'%1'").arg(sale));
    ASSERT_TRUE(a.ok()) << a.Text.toStdString();
    const RecordsetPtr rs = a.Data.toRecordset();
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(Str(rs, "Code"), QStringLiteral("SALE_INVOICE"));
    const BOResult b = Call(QStringLiteral("DO0201400_GetRelatedDocumentGroup"),
                            QStringLiteral("'%1'").arg(returns));
    ASSERT_TRUE(b.ok()) << b.Text.toStdString();
    EXPECT_EQ(b.Data.toRecordset()->RecordCount(), 0);
}

ORVO_STORAGE_BACKENDS(GroupDebtsTest);

} // namespace
} // namespace orvo::host::testing

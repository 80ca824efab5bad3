// ObjectStore::SaveMany on both backends: a batch of records is stored whole or not at
// all, each record as Save stores it (numbers, lock, hooks), a record's hooks see the
// records before it, and a refused record names its place in the batch. Also: the
// remembered posting rules ask the chart once per account however many entries post to
// it, and still refuse what the chart refuses.
#include "core/recordset.h"
#include "host/objects/object_store.h"
#include "host/objects/operation_kind.h"
#include "host/script/json_value.h"
#include "storage_fixture.h"

#include <QJsonDocument>
#include <QSet>

namespace orvo::host {
namespace {

using testing::StorageTest;

// A document with lines, each line with marks; the document and its lines draw their
// numbers from the record sequence, the marks from their own table.
ObjectKind BatchKind() {
    using CT = ColumnType;
    auto marks = std::make_shared<ObjectTable>();
    marks->Table = {
        QStringLiteral("TBatchMarks"),
        {IdColumn(),
         ForeignKey(QStringLiteral("LineID"), QStringLiteral("TBatchLines(ID)"), true, true),
         Column(QStringLiteral("Sign"), CT::Integer, true, QStringLiteral("1")),
         Column(QStringLiteral("FOIDR"), CT::Text, true)},
        {},
        {}};
    marks->Hidden = {QStringLiteral("LineID")};
    auto lines = std::make_shared<ObjectTable>();
    lines->Table = {
        QStringLiteral("TBatchLines"),
        {IdColumn(),
         ForeignKey(QStringLiteral("DocID"), QStringLiteral("TBatchDocs(ID)"), true, true),
         Column(QStringLiteral("SumA"), CT::Money, true, QStringLiteral("0")),
         Column(QStringLiteral("DateD"), CT::Date), FlagColumn(QStringLiteral("Flag"))},
        {},
        {}};
    lines->Hidden = {QStringLiteral("DocID")};
    lines->IdSequence = kRecordSequence;
    lines->Children = {{QStringLiteral("Marks"), marks, QStringLiteral("LineID"), false}};
    ObjectKind k;
    k.Code = QStringLiteral("O9990002");
    k.Title = QStringLiteral("Bandomieji paketai");
    k.Root.Table = {QStringLiteral("TBatchDocs"),
                    {IdColumn(), Column(QStringLiteral("Comment"), CT::Text),
                     Column(QStringLiteral("LockGUID"), CT::Text)},
                    {},
                    {}};
    k.Root.IdSequence = kRecordSequence;
    k.Root.Children = {{QStringLiteral("Lines"), lines, QStringLiteral("DocID"), false}};
    k.LockColumn = QStringLiteral("LockGUID");
    // The book holds one document per comment: the check reads what is stored, so within
    // a batch it sees the documents saved before it. "blogas" is refused outright.
    k.Hooks.BeforeWrite = [](Database& db, Recordset& rs, int row, qint64 id,
                             const ObjectSaveActor&) {
        const QString comment =
            rs.ValueAt(row, rs.FieldIndex(QStringLiteral("Comment"))).toString();
        if (comment == QLatin1String("blogas"))
            return ResultRecord::Failure(777, QStringLiteral("Blogas dokumentas!"));
        const QueryResult q = db.Query(
            QStringLiteral("SELECT COUNT(*) FROM TBatchDocs WHERE Comment = ? AND ID <> ?"),
            {Value(comment), Value(double(id))});
        if (!q.ok())
            return ResultRecord::Failure(1, q.Text);
        if (q.Scalar().toInt32() > 0)
            return ResultRecord::Failure(777, QStringLiteral("Toks dokumentas jau yra!"));
        return ResultRecord::Success();
    };
    return k;
}

class ObjectStoreBatchTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = OpenBook();
        ASSERT_TRUE(db_);
        kind_ = BatchKind();
        for (const TableDef* t : {&kind_.Root.Table, &kind_.Root.Children[0].Table->Table,
                                  &kind_.Root.Children[0].Table->Children[0].Table->Table}) {
            const ResultRecord r = db_->CreateTable(*t);
            ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        }
    }

    // A new document of `lines` lines with two marks each.
    RecordsetPtr NewDocument(const QString& comment, int lines = 3) {
        ObjectStore store(*db_);
        RecordsetPtr rs = store.ReadBlank(kind_).Data.toRecordset();
        rs->SetField(QStringLiteral("Comment"), comment);
        RecordsetPtr ls = rs->Field(QStringLiteral("Lines")).toRecordset();
        for (int i = 0; i < lines; ++i) {
            ls->AddNew();
            ls->SetField(QStringLiteral("SumA"), 10.01 * (i + 1));
            ls->SetField(QStringLiteral("DateD"), QDate(2026, 2, 1 + i));
            RecordsetPtr marks = ls->Field(QStringLiteral("Marks")).toRecordset();
            for (int s : {1, -1}) {
                marks->AddNew();
                marks->SetField(QStringLiteral("Sign"), s);
                marks->SetField(QStringLiteral("FOIDR"), QStringLiteral("O00001004%1").arg(i));
                marks->Update();
            }
            ls->Update();
        }
        return rs;
    }

    qint64 Count(const QString& table) {
        return static_cast<qint64>(
            db_->Query(QStringLiteral("SELECT COUNT(*) FROM ") + table).Scalar().toDouble());
    }

    void ExpectEmptyBook() {
        EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 0);
        EXPECT_EQ(Count(QStringLiteral("TBatchLines")), 0);
        EXPECT_EQ(Count(QStringLiteral("TBatchMarks")), 0);
    }

    // The record as the caller had it before a failed save: new, no numbers, no lock.
    static void ExpectUntouched(const RecordsetPtr& rs) {
        EXPECT_TRUE(rs->Field(QStringLiteral("OIDR")).isNull());
        EXPECT_TRUE(rs->Field(QStringLiteral("LockGUID")).isNull());
        RecordsetPtr lines = rs->Field(QStringLiteral("Lines")).toRecordset();
        for (int i = 0; i < lines->RowCountAll(); ++i) {
            EXPECT_TRUE(lines->ValueAt(i, lines->FieldIndex(QStringLiteral("ID"))).isNull());
            EXPECT_EQ(lines->StatusAt(i), RowStatus::New);
        }
    }

    static QByteArray Json(const Recordset& rs) {
        return QJsonDocument(RecordsetToJson(rs)).toJson(QJsonDocument::Compact);
    }

    DatabasePtr db_;
    ObjectKind kind_;
};

TEST_P(ObjectStoreBatchTest, SaveManyStoresEveryRecordWithItsNumbers) {
    ObjectStore store(*db_);
    QVector<ObjectStore::Item> items;
    for (const char* c : {"pirmas", "antras", "trečias"})
        items.append({0, NewDocument(QString::fromUtf8(c))});
    const BOResult saved = store.SaveMany(kind_, items);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const RecordsetPtr out = saved.Data.toRecordset();
    ASSERT_TRUE(out);
    ASSERT_EQ(out->RecordCount(), 3);
    EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 3);
    EXPECT_EQ(Count(QStringLiteral("TBatchLines")), 9);
    EXPECT_EQ(Count(QStringLiteral("TBatchMarks")), 18);
    QSet<qint64> numbers;
    out->MoveFirst();
    for (const ObjectStore::Item& item : items) {
        const QString oidr = item.Rs->Field(QStringLiteral("OIDR")).toString();
        EXPECT_EQ(out->Field(QStringLiteral("OIDR")).toString(), oidr);
        EXPECT_EQ(out->Field(QStringLiteral("LockGUID")).toString(),
                  item.Rs->Field(QStringLiteral("LockGUID")).toString());
        EXPECT_FALSE(item.Rs->Field(QStringLiteral("LockGUID")).toString().isEmpty());
        const qint64 id = ObjectStore::IdFromOIDR(kind_, oidr);
        ASSERT_GT(id, 0);
        numbers.insert(id);
        // The document and its lines share the record sequence: no number twice.
        RecordsetPtr lines = item.Rs->Field(QStringLiteral("Lines")).toRecordset();
        for (int i = 0; i < lines->RowCountAll(); ++i) {
            const qint64 line = static_cast<qint64>(
                lines->ValueAt(i, lines->FieldIndex(QStringLiteral("ID"))).toDouble());
            EXPECT_FALSE(numbers.contains(line));
            numbers.insert(line);
        }
        // What the batch saved is exactly what is read back.
        const BOResult read = store.Read(kind_, id);
        ASSERT_TRUE(read.ok()) << read.Text.toStdString();
        EXPECT_EQ(Json(*read.Data.toRecordset()).toStdString(), Json(*item.Rs).toStdString());
        out->MoveNext();
    }
    EXPECT_EQ(numbers.size(), 12);
}

TEST_P(ObjectStoreBatchTest, SaveManyWithARefusedRecordStoresNothingOfTheBatch) {
    ObjectStore store(*db_);
    QVector<ObjectStore::Item> items = {{0, NewDocument(QStringLiteral("pirmas"))},
                                        {0, NewDocument(QStringLiteral("antras"))},
                                        {0, NewDocument(QStringLiteral("blogas"))},
                                        {0, NewDocument(QStringLiteral("ketvirtas"))}};
    const BOResult saved = store.SaveMany(kind_, items);
    EXPECT_EQ(saved.Code, 777);
    EXPECT_EQ(saved.Text, QStringLiteral("Blogas dokumentas!"));
    EXPECT_EQ(saved.Data.toInt32(), 2);
    ExpectEmptyBook();
    for (const ObjectStore::Item& item : items)
        ExpectUntouched(item.Rs);
    // Once the refused record is put right, the same recordsets go in whole.
    items[2].Rs->SetField(QStringLiteral("Comment"), QStringLiteral("trečias"));
    const BOResult again = store.SaveMany(kind_, items);
    ASSERT_TRUE(again.ok()) << again.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 4);
    EXPECT_EQ(Count(QStringLiteral("TBatchMarks")), 24);
}

TEST_P(ObjectStoreBatchTest, SaveManyWithARowTheBookRejectsStoresNothingOfTheBatch) {
    ObjectStore store(*db_);
    QVector<ObjectStore::Item> items = {{0, NewDocument(QStringLiteral("pirmas"))},
                                        {0, NewDocument(QStringLiteral("antras"))}};
    // The last mark of the second document lacks its required reference.
    RecordsetPtr lines = items[1].Rs->Field(QStringLiteral("Lines")).toRecordset();
    lines->MoveLast();
    RecordsetPtr marks = lines->Field(QStringLiteral("Marks")).toRecordset();
    marks->MoveLast();
    marks->SetField(QStringLiteral("FOIDR"), Value());
    const BOResult saved = store.SaveMany(kind_, items);
    EXPECT_NE(saved.Code, 0);
    EXPECT_TRUE(saved.Text.contains(QStringLiteral("FOIDR"))) << saved.Text.toStdString();
    EXPECT_EQ(saved.Data.toInt32(), 1);
    ExpectEmptyBook();
    for (const ObjectStore::Item& item : items)
        ExpectUntouched(item.Rs);
}

TEST_P(ObjectStoreBatchTest, HooksOfALaterRecordSeeTheRecordsBeforeIt) {
    ObjectStore store(*db_);
    const BOResult saved = store.SaveMany(kind_, {{0, NewDocument(QStringLiteral("tas pats"))},
                                                  {0, NewDocument(QStringLiteral("kitas"))},
                                                  {0, NewDocument(QStringLiteral("tas pats"))}});
    EXPECT_EQ(saved.Code, 777);
    EXPECT_EQ(saved.Text, QStringLiteral("Toks dokumentas jau yra!"));
    EXPECT_EQ(saved.Data.toInt32(), 2);
    ExpectEmptyBook();
}

TEST_P(ObjectStoreBatchTest, SaveManyChangesStoredRecordsUnderTheirLock) {
    ObjectStore store(*db_);
    RecordsetPtr first = NewDocument(QStringLiteral("pirmas"));
    ASSERT_TRUE(store.Save(kind_, 0, first).ok());
    const qint64 id =
        ObjectStore::IdFromOIDR(kind_, first->Field(QStringLiteral("OIDR")).toString());
    RecordsetPtr copy = store.Read(kind_, id).Data.toRecordset();
    RecordsetPtr stale = store.Read(kind_, id).Data.toRecordset();

    // A changed record and a new one in one batch.
    copy->SetField(QStringLiteral("Comment"), QStringLiteral("pakeistas"));
    RecordsetPtr lines = copy->Field(QStringLiteral("Lines")).toRecordset();
    lines->MoveFirst();
    lines->Delete();
    const QString readLock = copy->Field(QStringLiteral("LockGUID")).toString();
    const BOResult saved =
        store.SaveMany(kind_, {{id, copy}, {0, NewDocument(QStringLiteral("naujas"))}});
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_NE(copy->Field(QStringLiteral("LockGUID")).toString(), readLock);
    EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 2);
    EXPECT_EQ(Count(QStringLiteral("TBatchLines")), 5);

    // A stale copy in a batch refuses the whole batch.
    stale->SetField(QStringLiteral("Comment"), QStringLiteral("pasenęs"));
    RecordsetPtr third = NewDocument(QStringLiteral("trečias"));
    const BOResult refused = store.SaveMany(kind_, {{0, third}, {id, stale}});
    EXPECT_NE(refused.Code, 0);
    EXPECT_EQ(refused.Data.toInt32(), 1);
    EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 2);
    ExpectUntouched(third);
    const QueryResult comment = db_->Query(
        QStringLiteral("SELECT Comment FROM TBatchDocs WHERE ID = ?"), {Value(double(id))});
    EXPECT_EQ(comment.Scalar().toString(), QStringLiteral("pakeistas"));
}

TEST_P(ObjectStoreBatchTest, SaveManyInsideAnOpenTransactionFollowsIt) {
    ObjectStore store(*db_);
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(store
                    .SaveMany(kind_, {{0, NewDocument(QStringLiteral("a"))},
                                      {0, NewDocument(QStringLiteral("b"))}})
                    .ok());
    ASSERT_TRUE(db_->Rollback().ok());
    ExpectEmptyBook();
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(store.SaveMany(kind_, {{0, NewDocument(QStringLiteral("a"))}}).ok());
    // A refused batch inside the transaction undoes only itself.
    EXPECT_EQ(store
                  .SaveMany(kind_, {{0, NewDocument(QStringLiteral("c"))},
                                    {0, NewDocument(QStringLiteral("blogas"))}})
                  .Code,
              777);
    ASSERT_TRUE(db_->Commit().ok());
    EXPECT_EQ(Count(QStringLiteral("TBatchDocs")), 1);
}

TEST_P(ObjectStoreBatchTest, SaveManyOfNoRecordsStoresNothing) {
    ObjectStore store(*db_);
    const BOResult saved = store.SaveMany(kind_, {});
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(saved.Data.toRecordset()->RecordCount(), 0);
    ExpectEmptyBook();
    const BOResult missing =
        store.SaveMany(kind_, {{0, NewDocument(QStringLiteral("a"))}, {0, {}}});
    EXPECT_NE(missing.Code, 0);
    EXPECT_EQ(missing.Data.toInt32(), 1);
    ExpectEmptyBook();
}

// Posting rules that count what they are asked.
struct CountingRules {
    std::shared_ptr<int> known = std::make_shared<int>(0);
    std::shared_ptr<int> demands = std::make_shared<int>(0);
    std::shared_ptr<int> locks = std::make_shared<int>(0);

    OperationPostingRules Rules() const {
        OperationPostingRules r;
        r.AccountKnown = [n = known](Database&, const QString& account) {
            ++*n;
            return account != QLatin1String("9999");
        };
        r.Demands = [n = demands](Database&, const QString&, int) {
            ++*n;
            return QVector<AddresseeDemand>();
        };
        r.LockRefusal = [n = locks](Database&, const QString&, const QDate&) {
            ++*n;
            return QString();
        };
        return r;
    }
};

RecordsetPtr NewOperation(const ObjectKind& kind, int entries, const QString& lastCredit) {
    auto rs = Recordset::Create(ObjectStore::RecordFields(kind.Root));
    rs->AddNew();
    rs->SetField(QStringLiteral("DateD"), QDate(2026, 3, 2));
    const RecordsetPtr br = rs->Field(QStringLiteral("BR")).toRecordset();
    for (int e = 0; e < entries; ++e) {
        br->AddNew();
        br->SetField(QStringLiteral("SumA"), 1.5 + e);
        br->SetField(QStringLiteral("AccountD"), QStringLiteral("2410"));
        br->SetField(QStringLiteral("AccountC"),
                     e == entries - 1 ? lastCredit : QStringLiteral("5000"));
        br->Update();
    }
    rs->Update();
    return rs;
}

TEST_P(ObjectStoreBatchTest, OneSaveAsksTheChartOncePerAccountAndStillRefusesAnUnknownOne) {
    CountingRules counting;
    const ObjectKind kind = OperationKind(counting.Rules());
    ObjectStore store(*db_);
    const BOResult saved = store.Save(kind, 0, NewOperation(kind, 20, QStringLiteral("5000")));
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(*counting.known, 2);
    EXPECT_EQ(*counting.demands, 2);
    EXPECT_EQ(*counting.locks, 2);
    EXPECT_EQ(Count(QStringLiteral("BR")), 20);
    // The next save asks again: nothing is remembered from one save to the next.
    const BOResult refused = store.Save(kind, 0, NewOperation(kind, 20, QStringLiteral("9999")));
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!")))
        << refused.Text.toStdString();
    EXPECT_EQ(*counting.known, 5);
    EXPECT_EQ(Count(QStringLiteral("BR")), 20);
    EXPECT_EQ(Count(QStringLiteral("BROpers")), 1);
}

ORVO_STORAGE_BACKENDS(ObjectStoreBatchTest);

} // namespace
} // namespace orvo::host

// The generic object store on both backends: deep nested records round trip exactly, a
// save that fails half-way leaves the book and the record as they were, the optimistic
// lock refuses a save from a stale copy, and deleting a record removes its nested rows.
#include "core/recordset.h"
#include "host/objects/object_store.h"
#include "host/script/json_value.h"
#include "storage_fixture.h"

#include <QJsonDocument>

namespace orvo::host {
namespace {

using testing::StorageTest;

// A document with lines, each line with marks: three levels, every column kind.
ObjectKind DocumentKind() {
    using CT = ColumnType;
    auto marks = std::make_shared<ObjectTable>();
    marks->Table = {
        QStringLiteral("TDocMarks"),
        {IdColumn(),
         ForeignKey(QStringLiteral("LineID"), QStringLiteral("TDocLines(ID)"), true, true),
         Column(QStringLiteral("Sign"), CT::Integer, true),
         Column(QStringLiteral("FOIDR"), CT::Text, true),
         Column(QStringLiteral("ShowString"), CT::Text)},
        {},
        {}};
    marks->Hidden = {QStringLiteral("LineID")};
    auto lines = std::make_shared<ObjectTable>();
    lines->Table = {
        QStringLiteral("TDocLines"),
        {IdColumn(), ForeignKey(QStringLiteral("DocID"), QStringLiteral("TDocs(ID)"), true, true),
         Column(QStringLiteral("DateD"), CT::Date), Column(QStringLiteral("SumA"), CT::Money),
         Column(QStringLiteral("Rate"), CT::Double), Column(QStringLiteral("AccountD"), CT::Text),
         FlagColumn(QStringLiteral("VATFlag"))},
        {},
        {}};
    lines->Hidden = {QStringLiteral("DocID")};
    lines->Children = {{QStringLiteral("Marks"), marks, QStringLiteral("LineID"), false}};
    ObjectKind k;
    k.Code = QStringLiteral("O9990001");
    k.Title = QStringLiteral("Bandomieji dokumentai");
    k.Root.Table = {QStringLiteral("TDocs"),
                    {IdColumn(), Column(QStringLiteral("Comment"), CT::Text),
                     Column(QStringLiteral("DateD"), CT::Date),
                     Column(QStringLiteral("LockGUID"), CT::Text)},
                    {},
                    {}};
    k.Root.Children = {{QStringLiteral("Lines"), lines, QStringLiteral("DocID"), false}};
    k.ListPreviewSql = QStringLiteral("Comment");
    k.LockColumn = QStringLiteral("LockGUID");
    return k;
}

class ObjectStoreTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = OpenBook();
        ASSERT_TRUE(db_);
        kind_ = DocumentKind();
        for (const TableDef* t : {&kind_.Root.Table, &kind_.Root.Children[0].Table->Table,
                                  &kind_.Root.Children[0].Table->Children[0].Table->Table}) {
            const ResultRecord r = db_->CreateTable(*t);
            ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        }
    }

    // A new document with two lines of two marks each.
    RecordsetPtr NewDocument(ObjectStore& store) {
        RecordsetPtr rs = store.ReadBlank(kind_).Data.toRecordset();
        rs->SetField(QStringLiteral("Comment"), QStringLiteral("Pirkimas iš UAB „Ąžuolas“"));
        rs->SetField(QStringLiteral("DateD"), QDate(2024, 3, 15));
        RecordsetPtr lines = rs->Field(QStringLiteral("Lines")).toRecordset();
        for (int i = 0; i < 2; ++i) {
            lines->AddNew();
            lines->SetField(QStringLiteral("DateD"), QDate(2024, 3, 15 + i));
            lines->SetField(QStringLiteral("SumA"), i == 0 ? 1234567.89 : 0.29);
            lines->SetField(QStringLiteral("Rate"), 1.0 / 1.0873);
            lines->SetField(QStringLiteral("AccountD"),
                            i == 0 ? QStringLiteral("2410") : QStringLiteral("6000"));
            lines->SetField(QStringLiteral("VATFlag"), i == 0);
            RecordsetPtr marks = lines->Field(QStringLiteral("Marks")).toRecordset();
            for (int s : {1, -1}) {
                marks->AddNew();
                marks->SetField(QStringLiteral("Sign"), s);
                marks->SetField(QStringLiteral("FOIDR"), QStringLiteral("O0000100%1").arg(i + 1));
                marks->SetField(QStringLiteral("ShowString"),
                                QStringLiteral("Įmonė %1").arg(i + 1));
                marks->Update();
            }
            lines->Update();
        }
        return rs;
    }

    qint64 Count(const QString& table) {
        return static_cast<qint64>(
            db_->Query(QStringLiteral("SELECT COUNT(*) FROM ") + table).Scalar().toDouble());
    }

    static QByteArray Json(const Recordset& rs) {
        return QJsonDocument(RecordsetToJson(rs)).toJson(QJsonDocument::Compact);
    }

    DatabasePtr db_;
    ObjectKind kind_;
};

TEST_P(ObjectStoreTest, DeepNestedRecordRoundTripsExactly) {
    ObjectStore store(*db_);
    RecordsetPtr rs = NewDocument(store);
    const BOResult saved = store.Save(kind_, 0, rs);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const QString oidr = saved.Data.toRecordset()->Field(QStringLiteral("OIDR")).toString();
    ASSERT_GE(oidr.size(), 9);
    EXPECT_EQ(rs->Field(QStringLiteral("OIDR")).toString(), oidr);

    const BOResult read = store.Read(kind_, ObjectStore::IdFromOIDR(kind_, oidr));
    ASSERT_TRUE(read.ok()) << read.Text.toStdString();
    // What was saved (now carrying its record numbers) is exactly what is read back.
    EXPECT_EQ(Json(*read.Data.toRecordset()).toStdString(), Json(*rs).toStdString());

    RecordsetPtr back = read.Data.toRecordset();
    RecordsetPtr lines = back->Field(QStringLiteral("Lines")).toRecordset();
    ASSERT_EQ(lines->RecordCount(), 2);
    lines->MoveFirst();
    EXPECT_DOUBLE_EQ(lines->Field(QStringLiteral("SumA")).toDouble(), 1234567.89);
    EXPECT_EQ(lines->Field(QStringLiteral("DateD")).toDate(), QDate(2024, 3, 15));
    EXPECT_TRUE(lines->Field(QStringLiteral("VATFlag")).toBool());
    EXPECT_DOUBLE_EQ(lines->Field(QStringLiteral("Rate")).toDouble(), 1.0 / 1.0873);
    EXPECT_EQ(lines->Field(QStringLiteral("Marks")).toRecordset()->RecordCount(), 2);
    EXPECT_EQ(back->Field(QStringLiteral("Comment")).toString(),
              QStringLiteral("Pirkimas iš UAB „Ąžuolas“"));
    // The sum in storage is exact hundredths.
    EXPECT_EQ(db_->Query(QStringLiteral("SELECT SUM(SumA) FROM TDocLines")).Scalar().toDouble(),
              123456818.0);
}

TEST_P(ObjectStoreTest, ChangedRecordStoresOnlyItsChangesAtEveryDepth) {
    ObjectStore store(*db_);
    RecordsetPtr rs = NewDocument(store);
    ASSERT_TRUE(store.Save(kind_, 0, rs).ok());
    const qint64 id = ObjectStore::IdFromOIDR(kind_, rs->Field(QStringLiteral("OIDR")).toString());
    RecordsetPtr doc = store.Read(kind_, id).Data.toRecordset();

    RecordsetPtr lines = doc->Field(QStringLiteral("Lines")).toRecordset();
    lines->MoveFirst();
    lines->SetField(QStringLiteral("SumA"), 100.01);
    RecordsetPtr marks = lines->Field(QStringLiteral("Marks")).toRecordset();
    marks->MoveFirst();
    marks->Delete();
    lines->MoveLast();
    lines->Delete();
    lines->AddNew();
    lines->SetField(QStringLiteral("SumA"), 5.5);
    lines->SetField(QStringLiteral("AccountD"), QStringLiteral("2710"));
    lines->Update();
    const BOResult saved = store.Save(kind_, id, doc);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();

    RecordsetPtr back = store.Read(kind_, id).Data.toRecordset();
    EXPECT_EQ(Json(*back).toStdString(), Json(*doc).toStdString());
    EXPECT_EQ(Count(QStringLiteral("TDocLines")), 2);
    EXPECT_EQ(Count(QStringLiteral("TDocMarks")),
              1); // one mark deleted, the deleted line took its two
    EXPECT_EQ(db_->Query(QStringLiteral("SELECT SUM(SumA) FROM TDocLines")).Scalar().toDouble(),
              10551.0);
}

TEST_P(ObjectStoreTest, SaveThatFailsHalfWayLeavesNothingBehind) {
    ObjectStore store(*db_);
    RecordsetPtr rs = NewDocument(store);
    // The last mark of the last line lacks its required reference: the document, the
    // first line and its marks are already written when the store meets it.
    RecordsetPtr lines = rs->Field(QStringLiteral("Lines")).toRecordset();
    lines->MoveLast();
    RecordsetPtr marks = lines->Field(QStringLiteral("Marks")).toRecordset();
    marks->MoveLast();
    marks->SetField(QStringLiteral("FOIDR"), Value());
    const BOResult saved = store.Save(kind_, 0, rs);
    EXPECT_NE(saved.Code, 0);
    EXPECT_TRUE(saved.Text.contains(QStringLiteral("FOIDR"))) << saved.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("TDocs")), 0);
    EXPECT_EQ(Count(QStringLiteral("TDocLines")), 0);
    EXPECT_EQ(Count(QStringLiteral("TDocMarks")), 0);
    // The record is as the caller had it: still new, every row still there.
    EXPECT_TRUE(rs->Field(QStringLiteral("OIDR")).isNull());
    EXPECT_EQ(lines->RecordCount(), 2);
    lines->MoveFirst();
    EXPECT_TRUE(lines->Field(QStringLiteral("ID")).isNull());
    EXPECT_EQ(lines->Status(), RowStatus::New);
}

TEST_P(ObjectStoreTest, SaveFromStaleCopyIsRefusedAndOverwritesNothing) {
    ObjectStore store(*db_);
    RecordsetPtr rs = NewDocument(store);
    ASSERT_TRUE(store.Save(kind_, 0, rs).ok());
    const qint64 id = ObjectStore::IdFromOIDR(kind_, rs->Field(QStringLiteral("OIDR")).toString());
    RecordsetPtr mine = store.Read(kind_, id).Data.toRecordset();
    RecordsetPtr theirs = store.Read(kind_, id).Data.toRecordset();

    theirs->SetField(QStringLiteral("Comment"), QStringLiteral("Jų pakeitimas"));
    ASSERT_TRUE(store.Save(kind_, id, theirs).ok());
    mine->SetField(QStringLiteral("Comment"), QStringLiteral("Mano pakeitimas"));
    const BOResult refused = store.Save(kind_, id, mine);
    EXPECT_NE(refused.Code, 0);
    EXPECT_TRUE(refused.Text.contains(QStringLiteral("pakeitė kitas naudotojas")))
        << refused.Text.toStdString();
    EXPECT_EQ(store.Read(kind_, id).Data.toRecordset()->Field(QStringLiteral("Comment")).toString(),
              QStringLiteral("Jų pakeitimas"));
    // After reading again, the change goes through.
    RecordsetPtr fresh = store.Read(kind_, id).Data.toRecordset();
    fresh->SetField(QStringLiteral("Comment"), QStringLiteral("Mano pakeitimas"));
    EXPECT_TRUE(store.Save(kind_, id, fresh).ok());
}

TEST_P(ObjectStoreTest, DeletingRecordRemovesItsNestedRows) {
    ObjectStore store(*db_);
    RecordsetPtr rs = NewDocument(store);
    ASSERT_TRUE(store.Save(kind_, 0, rs).ok());
    const qint64 id = ObjectStore::IdFromOIDR(kind_, rs->Field(QStringLiteral("OIDR")).toString());
    ASSERT_TRUE(store.Delete(kind_, id).ok());
    EXPECT_EQ(Count(QStringLiteral("TDocLines")), 0);
    EXPECT_EQ(Count(QStringLiteral("TDocMarks")), 0);
    EXPECT_NE(store.Read(kind_, id).Code, 0);
    EXPECT_NE(store.Delete(kind_, id).Code, 0);
}

TEST_P(ObjectStoreTest, ListGivesRowsBetweenPositions) {
    ObjectStore store(*db_);
    for (int i = 1; i <= 5; ++i) {
        RecordsetPtr rs = store.ReadBlank(kind_).Data.toRecordset();
        rs->SetField(QStringLiteral("Comment"), QStringLiteral("Dok. %1").arg(i));
        ASSERT_TRUE(store.Save(kind_, 0, rs).ok());
    }
    RecordsetPtr all = store.List(kind_, 0, 0).Data.toRecordset();
    EXPECT_EQ(all->RecordCount(), 5);
    RecordsetPtr middle = store.List(kind_, 2, 3).Data.toRecordset();
    ASSERT_EQ(middle->RecordCount(), 2);
    middle->MoveFirst();
    EXPECT_EQ(middle->Field(QStringLiteral("Preview")).toString(), QStringLiteral("Dok. 2"));
    EXPECT_EQ(middle->Field(QStringLiteral("OType")).toString(), QStringLiteral("O9990001"));
    RecordsetPtr tail = store.List(kind_, 4, 0).Data.toRecordset();
    EXPECT_EQ(tail->RecordCount(), 2);
}

ORVO_STORAGE_BACKENDS(ObjectStoreTest);

} // namespace
} // namespace orvo::host

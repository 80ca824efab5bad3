// The business-object methods of operation templates on both backends: a template
// stored with its entries and addressees and read back, the tree codes the chooser
// builds on, the lines AddTemplate reads, the allowed addressee kinds, copying and
// deleting template sets, and the optimistic lock.
#include "template_fixture.h"

namespace orvo::host::testing {
namespace {

class TemplateMethodsTest : public TemplatesTest {
protected:
    RecordsetPtr List(const QString& group = QString()) {
        const BOResult r =
            Call(QStringLiteral("GetTemplateList"),
                 group.isEmpty() ? QStringLiteral("None")
                                 : QStringLiteral("'") + group + QStringLiteral("'"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }
    RecordsetPtr Lines(qint64 id) {
        const BOResult r = Call(QStringLiteral("GetTemplateAccAndAddr"), QString::number(id));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }
};

TEST_P(TemplateMethodsTest, TemplateSavedWithEntriesAndAddresseesReadsBack) {
    const QString firm = AddFirm(QStringLiteral("UAB Ąžuolas"));
    const qint64 group = AddGroup(0, QStringLiteral("Pardavimai"));
    const qint64 id = AddTemplate(
        group, QStringLiteral("Pardavimas su PVM"),
        {{"2410", "5000", Value(1.0), {{1, "O0000100", firm}}},
         {"2410", "4492", Value(0.21), {{1, "O0000100", QString()}, {-1, "O0001401", QString()}}}});
    ASSERT_GT(id, 0);

    const RecordsetPtr rs = ReadTemplate(id);
    ASSERT_TRUE(rs);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("OIDR").toString(), QStringLiteral("O0201600%1").arg(id));
    EXPECT_EQ(rs->Field("Name").toString(), QStringLiteral("Pardavimas su PVM"));
    EXPECT_EQ(static_cast<qint64>(rs->Field("ParentID").toDouble()), group);
    EXPECT_FALSE(rs->Field("GroupFlag").toBool());
    const QString guid = rs->Field("GUID").toString();
    EXPECT_EQ(guid.size(), 38) << guid.toStdString();
    EXPECT_FALSE(rs->Field("LockGUID").toString().isEmpty());

    const RecordsetPtr acc = rs->Field("BRTemplateAcc").toRecordset();
    EXPECT_EQ(Rows(acc, {"AccountD", "AccountC", "Factor", "BRTemplateGUID"}),
              QStringList({"2410|5000|1|" + guid, "2410|4492|0.21|" + guid}));
    acc->MoveFirst();
    const QString first = acc->Field("GUID").toString();
    acc->MoveNext();
    const QString second = acc->Field("GUID").toString();
    const RecordsetPtr addr = rs->Field("BRTemplateAddr").toRecordset();
    EXPECT_EQ(Rows(addr, {"BRTemplateAccGUID", "Sign", "FOID", "FOIDR"}),
              QStringList({first + "|1|O0000100|" + firm, second + "|1|O0000100|",
                           second + "|-1|O0001401|"}));
}

TEST_P(TemplateMethodsTest, EmptyFactorIsStoredAsOne) {
    const qint64 id = AddTemplate(0, QStringLiteral("Be koeficiento"), {{"2410", "5000", Value()}});
    const RecordsetPtr lines = Lines(id);
    EXPECT_EQ(Rows(lines, {"AccountD", "AccountC", "Factor"}), QStringList({"2410|5000|1"}));
}

TEST_P(TemplateMethodsTest, TemplateListTreeCodes) {
    const qint64 a = AddGroup(0, QStringLiteral("A grupė"));
    const qint64 b = AddGroup(a, QStringLiteral("B pogrupis"));
    const qint64 t = AddTemplate(b, QStringLiteral("T šablonas"),
                                 {{"2410", "5000", Value(1.0)}, {"5000", "4492", Value(0.21)}});
    const qint64 u = AddTemplate(0, QStringLiteral("U šablonas"), {{"6000", "2410", Value(0.5)}});
    const QString ca = QStringLiteral("%1*").arg(a);
    const QString cb = ca + QStringLiteral("%1*").arg(b);
    const QString ct = cb + QStringLiteral("%1*").arg(t);
    const QString cu = QStringLiteral("%1*").arg(u);

    EXPECT_EQ(Rows(List(), {"ID", "ParentCode", "OwnCode", "GroupFlag", "Preview", "AccPreview"}),
              QStringList({QStringLiteral("%1||%2|1|A grupė|").arg(a).arg(ca),
                           QStringLiteral("%1|%2|%3|1|B pogrupis|").arg(b).arg(ca, cb),
                           QStringLiteral("%1|%2|%3|0|T šablonas|D2410 K5000 ×1; D5000 K4492 "
                                          "×0,21")
                               .arg(t)
                               .arg(cb, ct),
                           QStringLiteral("%1||%2|0|U šablonas|D6000 K2410 ×0,5").arg(u).arg(cu)}));
    // A group's list is the group and all below it.
    EXPECT_EQ(Rows(List(QString::number(a)), {"ID", "OIDR", "Name"}),
              QStringList({QStringLiteral("%1|O0201600%1|A grupė").arg(a),
                           QStringLiteral("%1|O0201600%1|B pogrupis").arg(b),
                           QStringLiteral("%1|O0201600%1|T šablonas").arg(t)}));
}

TEST_P(TemplateMethodsTest, MovingAGroupRenewsTheCodesBelowIt) {
    const qint64 a = AddGroup(0, QStringLiteral("A"));
    const qint64 b = AddGroup(a, QStringLiteral("B"));
    const qint64 t = AddTemplate(b, QStringLiteral("T"), {{"2410", "5000", Value(1.0)}});
    RecordsetPtr rs = ReadTemplate(b);
    rs->MoveFirst();
    rs->SetField("ParentID", Value());
    rs->Update();
    const BOResult moved = SaveTemplate(rs, b);
    ASSERT_TRUE(moved.ok()) << moved.Text.toStdString();
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("OwnCode").toString(), QStringLiteral("%1*").arg(b));
    EXPECT_EQ(rs->Field("ParentCode").toString(), QString());
    const RecordsetPtr below = ReadTemplate(t);
    below->MoveFirst();
    EXPECT_EQ(below->Field("OwnCode").toString(), QStringLiteral("%1*%2*").arg(b).arg(t));
    EXPECT_EQ(below->Field("ParentCode").toString(), QStringLiteral("%1*").arg(b));

    // A group cannot go below itself, and a template holds nothing.
    RecordsetPtr top = ReadTemplate(b);
    top->MoveFirst();
    top->SetField("ParentID", Value(double(t)));
    top->Update();
    const BOResult intoTemplate = SaveTemplate(top, b);
    EXPECT_EQ(intoTemplate.Code, 777);
    EXPECT_EQ(intoTemplate.Text, QStringLiteral("Šablonas gali būti tik šablonų grupėje!"));
    const qint64 c = AddGroup(b, QStringLiteral("C"));
    RecordsetPtr loop = ReadTemplate(b);
    loop->MoveFirst();
    loop->SetField("ParentID", Value(double(c)));
    loop->Update();
    const BOResult intoItself = SaveTemplate(loop, b);
    EXPECT_EQ(intoItself.Code, 777);
    EXPECT_EQ(intoItself.Text, QStringLiteral("Grupės negalima perkelti į jos pačios pogrupį!"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COALESCE(ParentID, 0) FROM BRTemplates WHERE ID = ?"),
                    {Value(double(b))}),
              0);
}

TEST_P(TemplateMethodsTest, TemplateAccAndAddrKeepsTheStoredOrder) {
    const QString firm = AddFirm(QStringLiteral("UAB Ąžuolas"));
    const qint64 id = AddTemplate(0, QStringLiteral("Trys įrašai"),
                                  {{"6000", "2410", Value(1.0)},
                                   {"2410", "5000", Value(0.5), {{1, "O0000100", firm}}},
                                   {"5000", "4492", Value(0.21), {{-1, "O0001401", QString()}}}});
    const RecordsetPtr lines = Lines(id);
    ASSERT_TRUE(lines);
    EXPECT_EQ(Rows(lines, {"AccountD", "AccountC", "Factor"}),
              QStringList({"6000|2410|1", "2410|5000|0.5", "5000|4492|0.21"}));
    qint64 previous = 0;
    QStringList demands;
    for (lines->MoveFirst(); !lines->Eof(); lines->MoveNext()) {
        const qint64 lineId = static_cast<qint64>(lines->Field("ID").toDouble());
        EXPECT_GT(lineId, previous);
        previous = lineId;
        EXPECT_EQ(lines->Field("GUID").toString().size(), 38);
        demands << Rows(lines->Field("RequiredAddr").toRecordset(),
                        {"Sign", "FOID", "FOIDR", "ShowString"})
                       .join(QLatin1Char(';'));
    }
    EXPECT_EQ(demands, QStringList({"", "1|O0000100|" + firm + "|UAB Ąžuolas", "-1|O0001401||"}));

    const BOResult missing =
        Call(QStringLiteral("GetTemplateAccAndAddr"), QStringLiteral("999999"));
    EXPECT_EQ(missing.Code, 777);
    EXPECT_EQ(missing.Text, QStringLiteral("Operacijos šablonas nerastas!"));
}

TEST_P(TemplateMethodsTest, EnabledAddresseeNamesTheKindsTheChartAllows) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjų skolos"));
    RecordsetPtr rs = Read(acc);
    rs->MoveFirst();
    const RecordsetPtr required = rs->Field("BRRequiredAddr").toRecordset();
    required->AddNew();
    required->SetField("Sign", Value(qint16(1)));
    required->SetField("FOID", QStringLiteral("O0001401"));
    required->Update();
    const RecordsetPtr enabled = rs->Field("EnabledAddressee").toRecordset();
    enabled->AddNew();
    enabled->SetField("Sign", Value(qint16(0)));
    enabled->SetField("FOID", QStringLiteral("O0000100"));
    enabled->Update();
    const BOResult saved = SaveRecord(rs, acc);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();

    BOResult r = Call(QStringLiteral("DO0201600_GetEnabledAddressee"), QStringLiteral("'2410'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"FOID", "Name"}),
              QStringList({"O0001401|Darbuotojas", "O0000100|Įmonė"}));
    r = Call(QStringLiteral("DO0201600_GetEnabledAddressee"), QStringLiteral("'2410',-1"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"FOID", "Name"}), QStringList({"O0000100|Įmonė"}));
    r = Call(QStringLiteral("DO0201600_GetEnabledAddressee"), QStringLiteral("'0'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toRecordset()->RecordCount(), 0);
}

TEST_P(TemplateMethodsTest, AddBRTemplateSetCopiesAGroupWithItsTemplates) {
    const QString firm = AddFirm(QStringLiteral("UAB Ąžuolas"));
    const qint64 source = AddGroup(0, QStringLiteral("Šaltinis"));
    const qint64 inner = AddGroup(source, QStringLiteral("Vidinė"));
    const qint64 t = AddTemplate(inner, QStringLiteral("Pardavimas"),
                                 {{"2410", "5000", Value(1.0), {{1, "O0000100", firm}}},
                                  {"2410", "4492", Value(0.21), {{1, "O0000100", QString()}}}});
    const qint64 target = AddGroup(0, QStringLiteral("Tikslas"));

    const BOResult r = Call(QStringLiteral("AddBRTemplateSet"),
                            QStringLiteral("'O0201600','%1',%2").arg(source).arg(target));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const qint64 copy = IdOf(r);
    ASSERT_GT(copy, 0);
    EXPECT_NE(copy, source);

    // The copy hangs in the target with the same shape and names, and shares no key.
    const QStringList copied =
        Rows(List(QString::number(target)), {"Name", "GroupFlag", "AccPreview"});
    EXPECT_EQ(copied, QStringList({"Tikslas|1|", "Šaltinis|1|", "Vidinė|1|",
                                   "Pardavimas|0|D2410 K5000 ×1; D2410 K4492 ×0,21"}));
    const RecordsetPtr tree = List(QString::number(target));
    QHash<QString, QString> codes;
    for (tree->MoveFirst(); !tree->Eof(); tree->MoveNext())
        codes.insert(tree->Field("Name").toString(), tree->Field("ParentCode").toString() + "/" +
                                                         tree->Field("OwnCode").toString());
    EXPECT_EQ(codes.value("Šaltinis"), QStringLiteral("%1*/%1*%2*").arg(target).arg(copy));

    const qint64 copiedTemplate =
        Count(QStringLiteral("SELECT ID FROM BRTemplates WHERE Name = 'Pardavimas' AND ID <> ?"),
              {Value(double(t))});
    const RecordsetPtr original = ReadTemplate(t);
    const RecordsetPtr twin = ReadTemplate(copiedTemplate);
    original->MoveFirst();
    twin->MoveFirst();
    EXPECT_NE(twin->Field("GUID").toString(), original->Field("GUID").toString());
    const RecordsetPtr twinAcc = twin->Field("BRTemplateAcc").toRecordset();
    EXPECT_EQ(Rows(twinAcc, {"AccountD", "AccountC", "Factor", "BRTemplateGUID"}),
              QStringList({"2410|5000|1|" + twin->Field("GUID").toString(),
                           "2410|4492|0.21|" + twin->Field("GUID").toString()}));
    twinAcc->MoveFirst();
    const QString firstLine = twinAcc->Field("GUID").toString();
    EXPECT_NE(firstLine, QStringLiteral("{00000000-0000-0000-0000-000000000001}"));
    twinAcc->MoveNext();
    const QString secondLine = twinAcc->Field("GUID").toString();
    EXPECT_EQ(Rows(twin->Field("BRTemplateAddr").toRecordset(), {"BRTemplateAccGUID", "FOIDR"}),
              QStringList({firstLine + "|" + firm, secondLine + "|"}));
    // The source stays as it was.
    EXPECT_EQ(Rows(List(QString::number(source)), {"Name"}),
              QStringList({"Šaltinis", "Vidinė", "Pardavimas"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc")), 4);
}

TEST_P(TemplateMethodsTest, AddBRTemplateSetCopiesOneTemplateToTheTop) {
    const qint64 group = AddGroup(0, QStringLiteral("G"));
    const qint64 t = AddTemplate(group, QStringLiteral("T"), {{"2410", "5000", Value(2.0)}});
    const BOResult r = Call(QStringLiteral("AddBRTemplateSet"),
                            QStringLiteral("'O0201600','O0201600%1',0").arg(t));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const qint64 copy = IdOf(r);
    const RecordsetPtr rs = ReadTemplate(copy);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Name").toString(), QStringLiteral("T"));
    EXPECT_EQ(rs->Field("ParentID").isNull() ? 0 : rs->Field("ParentID").toInt32(), 0);
    EXPECT_EQ(rs->Field("OwnCode").toString(), QStringLiteral("%1*").arg(copy));
    EXPECT_EQ(Rows(rs->Field("BRTemplateAcc").toRecordset(), {"AccountD", "AccountC", "Factor"}),
              QStringList({"2410|5000|2"}));

    const BOResult wrongKind =
        Call(QStringLiteral("AddBRTemplateSet"), QStringLiteral("'O0201400','%1',0").arg(t));
    EXPECT_EQ(wrongKind.Code, 777);
    const BOResult intoTemplate =
        Call(QStringLiteral("AddBRTemplateSet"), QStringLiteral("'O0201600','%1',%1").arg(t));
    EXPECT_EQ(intoTemplate.Code, 777);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplates")), 3);
}

TEST_P(TemplateMethodsTest, DeleteTemplateSetRemovesEntries) {
    const qint64 keep = AddTemplate(0, QStringLiteral("Lieka"), {{"2410", "5000", Value(1.0)}});
    const qint64 t = AddTemplate(0, QStringLiteral("Trinamas"),
                                 {{"2410", "5000", Value(1.0), {{1, "O0000100", QString()}}},
                                  {"5000", "4492", Value(0.21)}});
    BOResult r = Call(QStringLiteral("DeleteTemplateSet"), QStringLiteral("'O0201600%1'").arg(t));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toInt32(), 1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc WHERE BRTemplateID = ?"),
                    {Value(double(t))}),
              0);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAddr WHERE BRTemplateID = ?"),
                    {Value(double(t))}),
              0);

    // A group goes with every group and template it holds; others stay.
    const qint64 g = AddGroup(0, QStringLiteral("Grupė"));
    const qint64 sub = AddGroup(g, QStringLiteral("Pogrupis"));
    AddTemplate(sub, QStringLiteral("Gilus"), {{"2410", "5000", Value(1.0)}});
    AddTemplate(g, QStringLiteral("Seklus"), {{"2410", "5000", Value(1.0)}});
    r = Call(QStringLiteral("DO0201600_DeleteOrvoObject"), QStringLiteral("'O0201600%1'").arg(g));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toInt32(), 4);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplates")), 1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc")), 1);
    EXPECT_EQ(Count(QStringLiteral("SELECT BRTemplateID FROM BRTemplateAcc")), keep);
    EXPECT_NE(Call(QStringLiteral("DeleteTemplateSet"), QStringLiteral("'O0201600%1'").arg(g)).Code,
              0);
}

TEST_P(TemplateMethodsTest, ObjectListShowsOneNodeGroupsFirst) {
    const qint64 g = AddGroup(0, QStringLiteral("Zeta grupė"));
    AddTemplate(0, QStringLiteral("Alfa"), {});
    const qint64 inner = AddTemplate(g, QStringLiteral("Vidinis"), {});
    AddGroup(0, QStringLiteral("Beta grupė"));
    BOResult r =
        Call(QStringLiteral("DO0201600_GetOrvoObjectList"), QStringLiteral("'O0201600','',''"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"OType", "Preview", "GroupFlag"}),
              QStringList({"Group|Beta grupė|1", "Group|Zeta grupė|1", "Item|Alfa|0"}));
    r = Call(QStringLiteral("DO0201600_GetOrvoObjectList"),
             QStringLiteral("'O0201600%1','',''").arg(g));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"OIDR", "Preview"}),
              QStringList({QStringLiteral("O0201600%1|Vidinis").arg(inner)}));
}

TEST_P(TemplateMethodsTest, SaveFromAStaleCopyIsRefused) {
    const qint64 t = AddTemplate(0, QStringLiteral("T"), {{"2410", "5000", Value(1.0)}});
    RecordsetPtr first = ReadTemplate(t);
    RecordsetPtr second = ReadTemplate(t);
    first->MoveFirst();
    first->SetField("Name", QStringLiteral("Pirmas"));
    first->Update();
    ASSERT_TRUE(SaveTemplate(first, t).ok());
    second->MoveFirst();
    second->SetField("Name", QStringLiteral("Antras"));
    second->Update();
    EXPECT_FALSE(SaveTemplate(second, t).ok());
    const RecordsetPtr stored = ReadTemplate(t);
    stored->MoveFirst();
    EXPECT_EQ(stored->Field("Name").toString(), QStringLiteral("Pirmas"));
}

ORVO_STORAGE_BACKENDS(TemplateMethodsTest);

} // namespace
} // namespace orvo::host::testing

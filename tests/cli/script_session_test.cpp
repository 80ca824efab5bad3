// ScriptSession driven in-process on a demonstration book in a temporary folder: the
// shared routines by name, kept recordsets (filter, sort, rows, references), the
// business object called directly, the method list, today, read, delete, and an
// operation with a foreign-currency entry and an addressee built by AddBR.
#include "cli_fixture.h"

#include "accounts/account_registration.h"
#include "core/today.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/script/script_session.h"
#include "host/session/host_session.h"
#include "operations/operation_registration.h"

#include <QJsonArray>
#include <memory>

namespace orvo::cli_test {
namespace {

using host::HostSession;
using host::ScriptSession;

class ScriptSessionTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        RegisterOperationClasses();
        RegisterAccountClasses();
        HostSession::RegisterCatalogueClasses();
        host::RegisterPlainNavigators();
    }

    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        const QString book = dir_.filePath(QStringLiteral("knyga.orvo"));
        {
            host::OpenResult db = host::Database::Open(book, host::OpenMode::CreateIfMissing);
            ASSERT_TRUE(db.ok()) << db.Text.toStdString();
            const ResultRecord r = host::CreateDemoBook(*db.Db, QDate(2024, 3, 15));
            ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        }
        host::SessionResult s = HostSession::Open(book);
        ASSERT_TRUE(s.ok()) << s.Text.toStdString();
        session_ = std::move(s.Session);
        script_ = std::make_unique<ScriptSession>(*session_);
    }

    void TearDown() override {
        script_.reset();
        session_.reset();
        SetToday(QDate());
    }

    QJsonObject Step(const char* json) { return script_->RunLine(QByteArray(json)); }

    // The Value of a step that must succeed.
    QJsonValue ValueOf(const char* json) {
        const QJsonObject reply = Step(json);
        EXPECT_TRUE(reply.value("ok").toBool())
            << json << " -> " << QJsonDocument(reply).toJson().toStdString();
        return reply.value("Value");
    }

    QTemporaryDir dir_;
    std::unique_ptr<HostSession> session_;
    std::unique_ptr<ScriptSession> script_;
};

TEST_F(ScriptSessionTest, CatalogueRoutinesGiveWhatTheSharedRoutinesGive) {
    const struct {
        const char* step;
        QJsonValue expected;
    } cases[] = {
        {R"({"op":"catalogue","name":"FormatAmount","params":[0.004]})", " "},
        {R"({"op":"catalogue","name":"FormatAmount","params":[-0.01]})", "-0,01"},
        {R"({"op":"catalogue","name":"FormatAmount","params":[1234.5]})", "1 234,50"},
        {R"({"op":"catalogue","name":"RoundHalfUp","params":[-2.5,0]})", -2},
        {R"({"op":"catalogue","name":"RoundHalfUp","params":[2.5,0]})", 3},
        {R"({"op":"catalogue","name":"RoundHalfUp","params":[1.23456789,6]})", 1.234568},
        {R"({"op":"catalogue","name":"RoundSum","params":[1.23455,true]})", 1.2346},
        {R"({"op":"catalogue","name":"RoundBaseSum","params":[2.675]})", 2.68},
        {R"({"op":"catalogue","name":"NumberFromText","params":["1 234,56"]})", 1234.56},
        {R"({"op":"catalogue","name":"RateFromText","params":["4,0"]})", 0.25},
        {R"({"op":"catalogue","name":"RateFromText","params":["4,0",false]})", 4},
        {R"({"op":"catalogue","name":"ValDot","params":["1,5 Eur"]})", 1.5},
        {R"({"op":"catalogue","name":"FirstWord","params":["2410 Pirkėjų skolos"]})", "2410"},
        {R"({"op":"catalogue","name":"FilterNumericKey","params":[46,"12"]})", 44},
        {R"({"op":"catalogue","name":"FilterNumericKey","params":[44,"1,2"]})", 0},
        {R"({"op":"catalogue","name":"FormatTypedNumber","params":["1234,5"]})", "1234,50"},
        {R"({"op":"catalogue","name":"FirstOfMonth","params":["2024-03-15"]})", "2024-03-01"},
        {R"({"op":"catalogue","name":"LastOfMonth","params":["2024-02-10"]})", "2024-02-29"},
        {R"({"op":"catalogue","name":"AddMonths","params":["2024-01-31",1]})", "2024-02-29"},
        {R"({"op":"catalogue","name":"FormatLongDate","params":["","2024-03-15"]})",
         "2024 m. kovo 15 d."},
        {R"({"op":"catalogue","name":"FormatLongDate","params":["m","2024-03-15"]})", "kovo"},
        {R"({"op":"catalogue","name":"KindTitle","params":["O0201504","Operacija"]})",
         "Kasos pajamų orderis"},
        {R"({"op":"catalogue","name":"KindTitle","params":["O0201500","Operacija"]})", "Operacija"},
        {R"({"op":"catalogue","name":"DebtsQueryName","params":["O00",1]})", "Debts3"},
        {R"({"op":"catalogue","name":"DebtsQueryName","params":["O0000100",0]})", "Debts2"},
        {R"({"op":"catalogue","name":"DebtsQueryName","params":["O00001001",0]})", "Debts1"},
        {R"({"op":"catalogue","name":"DebtsQueryName","params":["O00001001",-1]})",
         "DebtsByCredit"},
        {R"({"op":"catalogue","name":"AddresseeDialogTitle","params":["O0000100"]})",
         "Pasirinkite įmonę, paieškos tekstą įveskite per [Ctrl + F]"},
        {R"({"op":"catalogue","name":"AddresseeDialogTitle","params":["O0001402"]})",
         "Pažymėkite norimą adresatą"},
        {R"({"op":"catalogue","name":"GetBaseCurrency"})", "EUR"},
        {R"({"op":"catalogue","name":"BaseIsEuro","params":[]})", true},
        {R"({"op":"catalogue","name":"RateToBase","params":[4]})", 0.25},
        {R"({"op":"catalogue","name":"RateToBase","params":[0]})", 0},
        {R"({"op":"catalogue","name":"NzLong","params":[null]})", 0},
        {R"({"op":"catalogue","name":"NzLong","params":[2.5]})", 2},
        {R"({"op":"catalogue","name":"NzDouble","params":[null]})", 0},
        {R"({"op":"catalogue","name":"NzString","params":[null]})", ""},
        {R"({"op":"catalogue","name":"NzString","params":[12]})", "12"},
        {R"({"op":"catalogue","name":"SumByWords","params":[1234.56,"EUR"]})",
         "Vienas tūkstantis du šimtai trisdešimt keturi eurai 56 ct"},
        {R"({"op":"catalogue","name":"SumInWords","params":[1234.56,"EUR"]})",
         "Vienas tūkstantis du šimtai trisdešimt keturi eurai 56 ct"},
    };
    for (const auto& c : cases) {
        const QJsonObject reply = Step(c.step);
        EXPECT_EQ(reply, (QJsonObject{{"ok", true}, {"Value", c.expected}}))
            << c.step << " -> "
            << QJsonDocument(reply).toJson(QJsonDocument::Compact).toStdString();
    }
    // The administrator of the book holds every right.
    const QJsonObject rights =
        ValueOf(R"({"op":"catalogue","name":"RightsFor","params":["CBROperRights1"]})").toObject();
    EXPECT_EQ(rights.value("Read").toInt(), -1);
    EXPECT_EQ(rights.value("Create").toInt(), -1);
}

TEST_F(ScriptSessionTest, CatalogueRefusesWrongParametersAndUnknownNames) {
    QJsonObject r = Step(R"({"op":"catalogue","name":"FormatAmount","params":[]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_TRUE(r.value("error").toString().contains(QStringLiteral("FormatAmount(Value)")));
    r = Step(R"({"op":"catalogue","name":"FormatAmount","params":["daug"]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_TRUE(r.value("error").toString().contains(QStringLiteral("1-asis parametras")));
    r = Step(R"({"op":"catalogue","name":"LastOfMonth","params":["vakar"]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    r = Step(R"({"op":"catalogue","name":"Format","params":[1]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_TRUE(r.value("error").toString().contains(QStringLiteral("„Format“")));

    // Without a name: the list of routines, with every one the scripts rely on.
    const QJsonArray list = ValueOf(R"({"op":"catalogue"})").toArray();
    QStringList names;
    for (const QJsonValue& v : list)
        names << v["name"].toString();
    for (const char* needed : {"FormatAmount",
                               "RoundHalfUp",
                               "RoundSum",
                               "RoundBaseSum",
                               "NumberFromText",
                               "RateFromText",
                               "ValDot",
                               "FirstWord",
                               "FilterNumericKey",
                               "FormatTypedNumber",
                               "FirstOfMonth",
                               "LastOfMonth",
                               "FormatLongDate",
                               "KindTitle",
                               "AddMonths",
                               "DebtsQueryName",
                               "AddresseeDialogTitle",
                               "GetBaseCurrency",
                               "BaseIsEuro",
                               "RateToBase",
                               "NzLong",
                               "NzDouble",
                               "NzString",
                               "SumInWords"})
        EXPECT_TRUE(names.contains(QString::fromLatin1(needed))) << needed;
}

TEST_F(ScriptSessionTest, KeptRecordsetIsFilteredSortedAndPassedByReference) {
    ValueOf(
        R"({"op":"recordset","as":"r","fields":[{"name":"Name","type":"text","size":50},{"name":"Sum","type":"double"},{"name":"DateD","type":"date"}],"rows":[{"Name":"Beržas","Sum":15,"DateD":"2024-03-01"},{"Name":"Ąžuolas","Sum":40},{"Name":"Uosis","Sum":5}]})");
    QJsonObject r = Step(R"({"op":"sort","rs":"r","text":"Sum DESC"})");
    EXPECT_TRUE(r.value("ok").toBool());
    QJsonArray rows = r.value("Value")["rows"].toArray();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows.at(0)["Name"].toString(), QStringLiteral("Ąžuolas"));
    EXPECT_EQ(rows.at(2)["Name"].toString(), QStringLiteral("Uosis"));
    EXPECT_EQ(rows.at(1)["DateD"].toString(), QStringLiteral("2024-03-01"));
    EXPECT_TRUE(rows.at(0)["DateD"].isNull());

    r = Step(R"({"op":"sort","rs":"r","text":"NoSuchField"})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_NE(r.value("Code").toInt(0), 0);

    r = Step(R"({"op":"filter","rs":"r","text":"Name = 'Uosis' OR Sum > 30"})");
    EXPECT_TRUE(r.value("ok").toBool());
    EXPECT_EQ(r.value("RecordCount").toInt(), 2);
    r = Step(R"({"op":"filter","rs":"r","text":"Name = "})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_EQ(r.value("RecordCount").toInt(), 0);
    EXPECT_FALSE(r.value("Text").toString().isEmpty());
    r = Step(R"({"op":"filter","rs":"r","text":""})");
    EXPECT_EQ(r.value("RecordCount").toInt(), 3);

    // A kept recordset as a parameter of a shared routine.
    EXPECT_EQ(ValueOf(R"({"op":"catalogue","name":"TryFilter","params":[{"ref":"r"},"Sum > 10"]})"),
              QJsonValue(true));
    EXPECT_EQ(ValueOf(R"({"op":"rows","rs":"r"})")["rows"].toArray().size(), 2);
    r = Step(R"({"op":"catalogue","name":"TryFilter","params":[{"ref":"nera"},""]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_TRUE(r.value("error").toString().contains(QStringLiteral("nera")));

    r = Step(R"({"op":"recordset","as":"bad","fields":[{"name":"A","type":"mystery"}]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_TRUE(Step(R"({"op":"rows","rs":"bad"})").value("error").toString().contains("bad"));
}

TEST_F(ScriptSessionTest, BusinessObjectIsCalledDirectly) {
    QJsonObject r =
        Step(R"({"op":"bo","name":"GetCurrencyList","params":"'2024.03.01'","as":"c"})");
    EXPECT_TRUE(r.value("ok").toBool()) << r.value("error").toString().toStdString();
    EXPECT_EQ(r.value("Code").toInt(-1), 0);
    const QJsonArray rows = r.value("Value")["rows"].toArray();
    QStringList codes;
    for (const QJsonValue& row : rows)
        codes << row["Code"].toString();
    EXPECT_TRUE(codes.contains(QStringLiteral("EUR")));
    EXPECT_TRUE(codes.contains(QStringLiteral("USD")));
    // What it gave is kept as a recordset.
    EXPECT_EQ(ValueOf(R"({"op":"filter","rs":"c","text":"Code = 'USD'"})")["rows"].toArray().size(),
              1);

    r = Step(R"({"op":"bo","name":"GetNoSuchThing","params":"None"})");
    EXPECT_FALSE(r.value("ok").toBool(true));
    EXPECT_NE(r.value("Code").toInt(0), 0);
    EXPECT_FALSE(r.value("error").toString().isEmpty());
    r = Step(R"({"op":"bo","name":"GetCurrencyList","params":["2024.03.01"]})");
    EXPECT_FALSE(r.value("ok").toBool(true));
}

TEST_F(ScriptSessionTest, MethodListGivesTheRegistry) {
    const QJsonArray rows = ValueOf(R"({"op":"methodlist"})")["rows"].toArray();
    QStringList names;
    for (const QJsonValue& row : rows)
        names << row["Name"].toString();
    EXPECT_EQ(names.size(), session_->Methods().Count());
    EXPECT_TRUE(names.contains(QStringLiteral("GetCurrencyList")));
    EXPECT_EQ(ValueOf(R"({"op":"methodlist","text":true})").toString(),
              session_->Methods().Listing());
}

TEST_F(ScriptSessionTest, TodaySetsTheDateOfTheSession) {
    EXPECT_EQ(ValueOf(R"({"op":"today","date":"2023-12-31"})"), QJsonValue("2023-12-31"));
    EXPECT_EQ(Today(), QDate(2023, 12, 31));
    EXPECT_EQ(ValueOf(R"({"op":"catalogue","name":"Today"})"), QJsonValue("2023-12-31"));
    EXPECT_FALSE(Step(R"({"op":"today","date":"31.12.2023"})").value("ok").toBool(true));
    EXPECT_EQ(Today(), QDate(2023, 12, 31));
    ValueOf(R"({"op":"today","date":null})");
    EXPECT_NE(Today(), QDate(2023, 12, 31));
}

TEST_F(ScriptSessionTest, ReadDropsUnsavedChangesAndDeleteRemovesTheRecord) {
    ValueOf(R"({"op":"new","code":"O0000100","as":"f"})");
    ValueOf(R"({"op":"set","obj":"f","fields":{"Name":"UAB Laikina","Code":"111"}})");
    QJsonObject saved = Step(R"({"op":"save","obj":"f"})");
    ASSERT_TRUE(saved.value("ok").toBool()) << saved.value("error").toString().toStdString();
    const QString oidr = saved.value("OIDR").toString();
    ASSERT_GE(oidr.size(), 9);

    ValueOf(R"({"op":"set","obj":"f","fields":{"Name":"Kitas vardas"}})");
    const QJsonObject read = Step(R"({"op":"read","obj":"f"})");
    EXPECT_TRUE(read.value("ok").toBool());
    EXPECT_EQ(read.value("OIDR").toString(), oidr);
    EXPECT_EQ(ValueOf(R"({"op":"fields","obj":"f"})")["Name"].toString(),
              QStringLiteral("UAB Laikina"));

    const QJsonObject deleted = Step(R"({"op":"delete","obj":"f"})");
    EXPECT_TRUE(deleted.value("ok").toBool()) << deleted.value("error").toString().toStdString();
    EXPECT_EQ(deleted.value("Value"), QJsonValue(true));
    const QByteArray get = QStringLiteral(R"({"op":"get","oidr":"%1"})").arg(oidr).toUtf8();
    EXPECT_FALSE(script_->RunLine(get).value("ok").toBool(true));

    // A new object that was never stored has nothing to delete.
    ValueOf(R"({"op":"new","code":"O0000100","as":"n"})");
    EXPECT_FALSE(Step(R"({"op":"delete","obj":"n"})").value("ok").toBool(true));
    // "as" on an op that makes nothing is refused before anything runs.
    EXPECT_FALSE(Step(R"({"op":"save","obj":"n","as":"x"})").value("ok").toBool(true));
    EXPECT_TRUE(script_->Held(QStringLiteral("x")).isNull());
}

TEST_F(ScriptSessionTest, AddBRInDollarsWithAnAddresseeBuildsTheEntryInMemory) {
    ValueOf(R"({"op":"new","code":"O0201500","as":"o"})");
    ValueOf(
        R"({"op":"set","obj":"o","fields":{"DateD":"2024-03-15","Comment":"Pirkėjo mokėjimas"}})");
    const QJsonValue guid = ValueOf(
        R"({"op":"methods","obj":"o","name":"AddBR","params":["2710","2410",100,[-1,"O00001001","UAB Orvo demonstracinė"],1,"USD",0.92,0,"   ",0,"Apmokėta sąskaita","",""]})");
    EXPECT_FALSE(guid.toString().isEmpty());
    const QJsonObject entry = ValueOf(R"({"op":"fields","obj":"o","path":"BR/0"})").toObject();
    EXPECT_EQ(entry.value("GUID"), guid);
    EXPECT_EQ(entry.value("SumA").toDouble(), 92.0);
    EXPECT_EQ(entry.value("CurrencyRateD").toDouble(), 1.086957);
    EXPECT_EQ(entry.value("DateD").toString(), QStringLiteral("2024-03-15"));
    const QJsonArray currency = entry.value("BRCurrency")["rows"].toArray();
    ASSERT_EQ(currency.size(), 1);
    EXPECT_EQ(currency.at(0)["FCurrencyCode"].toString(), QStringLiteral("USD"));
    EXPECT_EQ(currency.at(0)["SumCurr"].toDouble(), 100.0);
    EXPECT_EQ(currency.at(0)["RateCurr"].toDouble(), 0.92);
    const QJsonArray addressees = entry.value("BRProperties")["rows"].toArray();
    ASSERT_EQ(addressees.size(), 1);
    EXPECT_EQ(addressees.at(0)["FOIDR"].toString(), QStringLiteral("O00001001"));
    EXPECT_EQ(addressees.at(0)["Sign"].toInt(), -1);

    // A second entry; selecting a row makes it the entry the shared routines look at.
    ValueOf(
        R"({"op":"methods","obj":"o","name":"AddBR","params":["2410","5000",10,[1,"O00001002","UAB Žalgirio prekyba"],0,"   ",0,0,"   ",0,"","",""]})");
    const char* findFirm =
        R"({"op":"catalogue","name":"FindProperty","params":[{"ref":"o"},"O0000100"]})";
    const QJsonObject select = Step(R"({"op":"set","obj":"o","path":"BR","row":1})");
    EXPECT_TRUE(select.value("ok").toBool()) << select.value("error").toString().toStdString();
    EXPECT_EQ(select.value("count").toInt(-1), 0);
    EXPECT_EQ(ValueOf(findFirm), QJsonValue("O00001002"));
    ValueOf(R"({"op":"set","obj":"o","path":"BR","row":0})");
    EXPECT_EQ(ValueOf(findFirm), QJsonValue("O00001001"));
    EXPECT_EQ(ValueOf(R"({"op":"catalogue","name":"BuildPropertyText","params":[{"ref":"o"},-1]})"),
              QJsonValue("UAB Orvo demonstracinė"));

    // A refusal of the command comes back with its code and text, and is shown.
    const QJsonObject refused =
        Step(R"({"op":"methods","obj":"o","name":"AddBR","params":["2710"]})");
    EXPECT_FALSE(refused.value("ok").toBool(true));
    EXPECT_EQ(refused.value("Code").toInt(), 777);
    EXPECT_TRUE(refused.value("Text").toString().contains(QStringLiteral("Klaidingi parametrai")));
    const QJsonArray boxes = ValueOf(R"({"op":"messages"})").toArray();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.at(0)["text"], refused.value("Text"));
}

} // namespace
} // namespace orvo::cli_test

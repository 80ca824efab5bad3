#include "core/recordset.h"
#include "core/today.h"
#include "host/methods/host_business_object.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/system_methods.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace orvo;
using namespace orvo::host;

namespace {

class HostBusinessObjectTest : public ::testing::Test {
protected:
    void SetUp() override {
        SetToday(QDate(2024, 3, 15));
        registry = std::make_shared<MethodRegistry>();
        ASSERT_TRUE(RegisterSystemMethods(*registry).ok());
    }
    void TearDown() override { SetToday(QDate()); }

    void add(const QString& name, QVector<ParameterSpec> parameters, MethodHandler handler) {
        MethodDefinition m;
        m.name = name;
        m.parameters = std::move(parameters);
        m.handler = std::move(handler);
        ASSERT_TRUE(registry->Register(m).ok());
    }

    HostBusinessObject make() {
        MethodContext context;
        context.userId = 42;
        context.userLogin = QStringLiteral("buhalterė");
        context.baseCurrency = QStringLiteral("EUR");
        return HostBusinessObject(registry, context);
    }

    std::shared_ptr<MethodRegistry> registry;
};

} // namespace

TEST_F(HostBusinessObjectTest, UnknownMethodGivesNonZeroCodeAndItsName) {
    auto bo = make();
    const BOResult r = bo.Call("GetNothing", "None");
    EXPECT_EQ(r.Code, bo_codes::UnknownMethod);
    EXPECT_EQ(r.Text, QString::fromUtf8("Nežinomas metodas: GetNothing"));
    EXPECT_TRUE(r.Data.isNull());
}

TEST_F(HostBusinessObjectTest, MethodNamesAreMatchedExactly) {
    auto bo = make();
    const BOResult r = bo.Call("getserverdate", "None");
    EXPECT_EQ(r.Code, bo_codes::UnknownMethod);
    EXPECT_EQ(r.Text, QString::fromUtf8("Nežinomas metodas: getserverdate"));
}

TEST_F(HostBusinessObjectTest, FailureDoesNotHandTheInputBack) {
    auto bo = make();
    const BOResult r = bo.Call("GetNothing", "None", Value("input rows"));
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Data.isNull());
}

TEST_F(HostBusinessObjectTest, GetServerDateReturnsTodayInOneRow) {
    auto bo = make();
    BOResult r;
    bo.Run("GetServerDate", "None", QString(), r);
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    RecordsetPtr rs = r.Data.toRecordset();
    ASSERT_TRUE(rs);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Today").toDate(), QDate(2024, 3, 15));
    SetToday(QDate(2025, 1, 2));
    EXPECT_EQ(bo.Call("GetServerDate", "").Data.toRecordset()->Field("Today").toDate(),
              QDate(2025, 1, 2));
}

TEST_F(HostBusinessObjectTest, GetServerDateRefusesAParameter) {
    auto bo = make();
    const BOResult r = bo.Call("GetServerDate", "'x'");
    EXPECT_EQ(r.Code, bo_codes::WrongParameterCount);
    EXPECT_EQ(r.Text, QString::fromUtf8("Metodas GetServerDate: tikėtasi 0 parametrų, gauta 1"));
}

TEST_F(HostBusinessObjectTest, GetMethodListListsEveryRegisteredMethod) {
    add("DO0201500_GetImportedBROpers",
        {ParameterSpec::Required("DateFrom", ParameterKind::Date),
         ParameterSpec::Required("DateTo", ParameterKind::Date)},
        [](MethodContext&, const MethodArguments&) { return BOResult::Of(Value()); });
    auto bo = make();
    const BOResult r = bo.Call("GetMethodList", "None");
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    RecordsetPtr rs = r.Data.toRecordset();
    ASSERT_TRUE(rs);
    ASSERT_EQ(rs->RecordCount(), 3);
    QStringList names;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        names.append(rs->Field("Name").toString());
    EXPECT_EQ(names,
              (QStringList{"DO0201500_GetImportedBROpers", "GetMethodList", "GetServerDate"}));
    rs->MoveLast();
    EXPECT_EQ(rs->Field("Fields").toString(), QStringLiteral("Today date"));
    EXPECT_FALSE(rs->Field("Doc").toString().isEmpty());
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Parameters").toString(),
              QStringLiteral("DO0201500_GetImportedBROpers(DateFrom: date, DateTo: date)"));
}

TEST_F(HostBusinessObjectTest, HandlerReceivesTypedParametersAndTheSession) {
    add("GetDebts1",
        {ParameterSpec::Required("Kind", ParameterKind::Integer),
         ParameterSpec::Required("Account", ParameterKind::Text),
         ParameterSpec::Required("DateD", ParameterKind::Date),
         ParameterSpec::Required("FOIDR", ParameterKind::OIDR),
         ParameterSpec::Required("Sign", ParameterKind::Integer)},
        [](MethodContext& c, const MethodArguments& a) {
            return BOResult::Of(
                Value(QStringLiteral("%1|%2|%3|%4|%5|%6|%7")
                          .arg(QString::number(a.Integer("Kind")), a.Text("Account"),
                               a.Date("DateD").toString("yyyy-MM-dd"), a.Text("FOIDR"),
                               QString::number(a.Integer("Sign")), QString::number(c.userId),
                               c.baseCurrency)));
        });
    auto bo = make();
    const BOResult r = bo.Call("GetDebts1", "'0','2410','2024.03.15','O0000100123',-1");
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toString(), QStringLiteral("0|2410|2024-03-15|O0000100123|-1|42|EUR"));
}

TEST_F(HostBusinessObjectTest, WrongCountAndWrongKindNeverReachTheHandler) {
    int calls = 0;
    add("GetDebts1",
        {ParameterSpec::Required("Kind", ParameterKind::Integer),
         ParameterSpec::Required("Account", ParameterKind::Text),
         ParameterSpec::Required("DateD", ParameterKind::Date),
         ParameterSpec::Required("Sign", ParameterKind::Integer)},
        [&calls](MethodContext&, const MethodArguments&) {
            ++calls;
            return BOResult::Of(Value());
        });
    auto bo = make();
    const BOResult count = bo.Call("GetDebts1", "'0','2410','2024.03.15'");
    EXPECT_EQ(count.Code, bo_codes::WrongParameterCount);
    EXPECT_EQ(count.Text, QString::fromUtf8("Metodas GetDebts1: tikėtasi 4 parametrų, gauta 3"));
    const BOResult kind = bo.Call("GetDebts1", "'0','2410','15.03.2024',1");
    EXPECT_EQ(kind.Code, bo_codes::WrongParameterKind);
    EXPECT_EQ(kind.Text, QString::fromUtf8("Metodas GetDebts1: parametro DateD reikšmė "
                                           "'15.03.2024' (12 pozicijoje) netinka: laukta data "
                                           "(yyyy.mm.dd)"));
    const BOResult text = bo.Call("GetDebts1", "'0','2410' '2024.03.15',1");
    EXPECT_EQ(text.Code, bo_codes::BadParameterText);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bo.Call("GetDebts1", "'0','2410','2024.03.15',1").ok());
    EXPECT_EQ(calls, 1);
}

TEST_F(HostBusinessObjectTest, StoringMethodReceivesTheDataGivenOnEntry) {
    add("DO0201500_SaveBROper", {}, [](MethodContext&, const MethodArguments& a) {
        RecordsetPtr rs = a.Input().toRecordset();
        if (!rs)
            return BOResult::Failure(5, QStringLiteral("nėra duomenų"));
        return BOResult::Of(Value(rs->RecordCount()));
    });
    RecordsetPtr rows = Recordset::Create({FieldDef::Make("OIDR", FieldType::VarWChar, 20)});
    rows->AddNew();
    rows->SetField("OIDR", Value("O0201500"));
    rows->Update();
    auto bo = make();
    BOResult r;
    r.Data = Value(rows);
    bo.Run("DO0201500_SaveBROper", "None", QString(), r);
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toInt32(), 1);
    EXPECT_EQ(bo.Call("DO0201500_SaveBROper", "None").Text, QString::fromUtf8("nėra duomenų"));
}

TEST_F(HostBusinessObjectTest, HandlerExceptionBecomesAResult) {
    add("GetBroken", {}, [](MethodContext&, const MethodArguments&) -> BOResult {
        throw std::runtime_error("disk full");
    });
    auto bo = make();
    const BOResult r = bo.Call("GetBroken", "None");
    EXPECT_EQ(r.Code, bo_codes::MethodFailed);
    EXPECT_EQ(r.Text, QString::fromUtf8("Metodas GetBroken: vidinė klaida: disk full"));
}

TEST_F(HostBusinessObjectTest, HandlerThrowingANonExceptionBecomesAResult) {
    add("GetBroken", {}, [](MethodContext&, const MethodArguments&) -> BOResult { throw 42; });
    auto bo = make();
    const BOResult r = bo.Call("GetBroken", "None");
    EXPECT_EQ(r.Code, bo_codes::MethodFailed);
    EXPECT_EQ(r.Text, QString::fromUtf8("Metodas GetBroken: vidinė klaida"));
}

TEST_F(HostBusinessObjectTest, HandlerRefusalPassesThroughUnchanged) {
    add("DO0201500_CheckAdvance", {}, [](MethodContext&, const MethodArguments&) {
        return BOResult::Failure(777, QString::fromUtf8("Avansinė apyskaita uždaryta"));
    });
    auto bo = make();
    const BOResult r = bo.Call("DO0201500_CheckAdvance", "None");
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QString::fromUtf8("Avansinė apyskaita uždaryta"));
}

TEST_F(HostBusinessObjectTest, HandlerRefusalWithoutTextGetsOne) {
    add("GetSilent", {},
        [](MethodContext&, const MethodArguments&) { return BOResult::Failure(12, QString()); });
    auto bo = make();
    const BOResult r = bo.Call("GetSilent", "None");
    EXPECT_EQ(r.Code, 12);
    EXPECT_EQ(r.Text, QString::fromUtf8("Metodas GetSilent: nepavyko (kodas 12)"));
}

TEST_F(HostBusinessObjectTest, MethodCanRunAnotherThroughTheContext) {
    add("GetTodayText", {}, [](MethodContext& c, const MethodArguments&) {
        const BOResult inner = c.businessObject->Call("GetServerDate", "None");
        if (!inner.ok())
            return inner;
        return BOResult::Of(
            Value(inner.Data.toRecordset()->Field("Today").toDate().toString("yyyy.MM.dd")));
    });
    auto bo = make();
    const BOResult r = bo.Call("GetTodayText", "None");
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Data.toString(), QStringLiteral("2024.03.15"));
}

TEST_F(HostBusinessObjectTest, HandlerMayChangeTheSession) {
    add("DO0000000_Login", {ParameterSpec::Required("Login", ParameterKind::Text)},
        [](MethodContext& c, const MethodArguments& a) {
            c.userLogin = a.Text("Login");
            return BOResult::Of(Value(true));
        });
    auto bo = make();
    ASSERT_TRUE(bo.Call("DO0000000_Login", "'jonas'").ok());
    EXPECT_EQ(bo.Context().userLogin, QStringLiteral("jonas"));
}

TEST(HostBusinessObject, WithoutARegistryEveryMethodIsUnknown) {
    HostBusinessObject bo(nullptr, MethodContext());
    const BOResult r = bo.Call("GetServerDate", "None");
    EXPECT_EQ(r.Code, bo_codes::UnknownMethod);
    EXPECT_EQ(bo.Registry().Count(), 0);
}

TEST(HostBusinessObject, SystemMethodsRegisterOnlyOnce) {
    MethodRegistry r;
    ASSERT_TRUE(RegisterSystemMethods(r).ok());
    EXPECT_EQ(r.Count(), 2);
    EXPECT_FALSE(RegisterSystemMethods(r).ok());
    EXPECT_EQ(r.Count(), 2);
}

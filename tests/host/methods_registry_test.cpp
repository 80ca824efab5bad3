#include "core/recordset.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_registry.h"
#include "host/methods/parameter_kind.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::host;

namespace {

BOResult nothing(MethodContext&, const MethodArguments&) {
    return BOResult::Of(Value());
}

MethodDefinition method(const QString& name, QVector<ParameterSpec> parameters = {},
                        ParameterSyntax syntax = ParameterSyntax::Quoted) {
    MethodDefinition m;
    m.name = name;
    m.parameters = std::move(parameters);
    m.syntax = syntax;
    m.handler = nothing;
    return m;
}

bool read(const char* text, ParameterKind kind, Value* out,
          ParameterToken::Kind tokenKind = ParameterToken::Kind::Quoted) {
    ParameterToken t;
    t.kind = tokenKind;
    t.text = QString::fromUtf8(text);
    t.position = 1;
    return ReadParameterValue(t, kind, out);
}

MethodDefinition debts() {
    return method(QStringLiteral("GetDebts1"),
                  {ParameterSpec::Required("Kind", ParameterKind::Integer),
                   ParameterSpec::Required("Account", ParameterKind::Text),
                   ParameterSpec::Required("DateD", ParameterKind::Date),
                   ParameterSpec::Required("FOIDR", ParameterKind::OIDR),
                   ParameterSpec::Optional("Sign", ParameterKind::Integer, Value(qint32(1)))});
}

} // namespace

// ---- reading one value as a kind ----

TEST(ParameterKind, IntegerReadsQuotedAndUnquoted) {
    Value v;
    ASSERT_TRUE(read("17", ParameterKind::Integer, &v, ParameterToken::Kind::Number));
    EXPECT_EQ(v.kind(), Value::Kind::Int32);
    EXPECT_EQ(v.toInt32(), 17);
    ASSERT_TRUE(read(" -1 ", ParameterKind::Integer, &v));
    EXPECT_EQ(v.toInt32(), -1);
    ASSERT_TRUE(read("2147483647", ParameterKind::Integer, &v));
    EXPECT_EQ(v.toInt32(), 2147483647);
}

TEST(ParameterKind, IntegerRefusesFractionsWordsAndOverflow) {
    Value v(qint32(5));
    EXPECT_FALSE(read("1.5", ParameterKind::Integer, &v, ParameterToken::Kind::Number));
    EXPECT_FALSE(read("", ParameterKind::Integer, &v));
    EXPECT_FALSE(read("abc", ParameterKind::Integer, &v));
    EXPECT_FALSE(read("2147483648", ParameterKind::Integer, &v));
    EXPECT_FALSE(read("99999999999999999999", ParameterKind::Integer, &v));
    EXPECT_EQ(v.toInt32(), 5) << "a refused value leaves the output untouched";
}

TEST(ParameterKind, NumberReadsDotUnquotedAndCommaInsideQuotes) {
    Value v;
    ASSERT_TRUE(read("-12.75", ParameterKind::Number, &v, ParameterToken::Kind::Number));
    EXPECT_EQ(v.kind(), Value::Kind::Double);
    EXPECT_DOUBLE_EQ(v.toDouble(), -12.75);
    ASSERT_TRUE(read("12,5", ParameterKind::Number, &v));
    EXPECT_DOUBLE_EQ(v.toDouble(), 12.5);
    ASSERT_TRUE(read("1E-05", ParameterKind::Number, &v, ParameterToken::Kind::Number));
    EXPECT_DOUBLE_EQ(v.toDouble(), 0.00001);
}

TEST(ParameterKind, NumberRefusesWordsInfinitiesAndTwoMarks) {
    Value v;
    EXPECT_FALSE(read("abc", ParameterKind::Number, &v));
    EXPECT_FALSE(read("inf", ParameterKind::Number, &v));
    EXPECT_FALSE(read("nan", ParameterKind::Number, &v));
    EXPECT_FALSE(read("1,234.5", ParameterKind::Number, &v));
    EXPECT_FALSE(read("1 234", ParameterKind::Number, &v));
    EXPECT_FALSE(read("", ParameterKind::Number, &v));
}

TEST(ParameterKind, DateReadsDotsAndDashes) {
    Value v;
    ASSERT_TRUE(read("2024.03.15", ParameterKind::Date, &v));
    EXPECT_EQ(v.kind(), Value::Kind::Date);
    EXPECT_EQ(v.toDate(), QDate(2024, 3, 15));
    ASSERT_TRUE(read("9999-12-31", ParameterKind::Date, &v));
    EXPECT_EQ(v.toDate(), QDate(9999, 12, 31));
    ASSERT_TRUE(read("2024.02.29", ParameterKind::Date, &v));
}

TEST(ParameterKind, DateRefusesImpossibleDatesMixedMarksAndNumbers) {
    Value v;
    EXPECT_FALSE(read("2024.02.30", ParameterKind::Date, &v));
    EXPECT_FALSE(read("2023.02.29", ParameterKind::Date, &v));
    EXPECT_FALSE(read("2024.13.01", ParameterKind::Date, &v));
    EXPECT_FALSE(read("2024.03-15", ParameterKind::Date, &v));
    EXPECT_FALSE(read("24.03.15", ParameterKind::Date, &v));
    EXPECT_FALSE(read("2024.3.15", ParameterKind::Date, &v));
    EXPECT_FALSE(read("", ParameterKind::Date, &v));
    EXPECT_FALSE(read("20240315", ParameterKind::Date, &v, ParameterToken::Kind::Number));
}

TEST(ParameterKind, BooleanReadsWordsAndNumbers) {
    Value v;
    ASSERT_TRUE(read("True", ParameterKind::Boolean, &v, ParameterToken::Kind::Bare));
    EXPECT_EQ(v.kind(), Value::Kind::Bool);
    EXPECT_TRUE(v.toBool());
    ASSERT_TRUE(read("false", ParameterKind::Boolean, &v));
    EXPECT_FALSE(v.toBool());
    ASSERT_TRUE(read("-1", ParameterKind::Boolean, &v, ParameterToken::Kind::Number));
    EXPECT_TRUE(v.toBool());
    ASSERT_TRUE(read("0", ParameterKind::Boolean, &v));
    EXPECT_FALSE(v.toBool());
    EXPECT_FALSE(read("Taip", ParameterKind::Boolean, &v));
    EXPECT_FALSE(read("", ParameterKind::Boolean, &v));
}

TEST(ParameterKind, OidrAcceptsReferencesNewRecordsAndEmpty) {
    Value v;
    ASSERT_TRUE(read("O0201500123", ParameterKind::OIDR, &v));
    EXPECT_EQ(v.toString(), QStringLiteral("O0201500123"));
    ASSERT_TRUE(read("O0201500", ParameterKind::OIDR, &v));
    EXPECT_EQ(v.toString(), QStringLiteral("O0201500"));
    ASSERT_TRUE(read("", ParameterKind::OIDR, &v));
    EXPECT_TRUE(v.isText());
    EXPECT_TRUE(v.toString().isEmpty());
}

TEST(ParameterKind, OidrLosesTheBlanksOfAFixedWidthColumn) {
    Value v;
    ASSERT_TRUE(read("O0000100123   ", ParameterKind::OIDR, &v));
    EXPECT_EQ(v.toString(), QStringLiteral("O0000100123"));
}

TEST(ParameterKind, OidrRefusesOtherTexts) {
    Value v;
    EXPECT_FALSE(read("12345678", ParameterKind::OIDR, &v));
    EXPECT_FALSE(read("O020150", ParameterKind::OIDR, &v));
    EXPECT_FALSE(read("OX0201500", ParameterKind::OIDR, &v));
    EXPECT_FALSE(read("O0201500 12", ParameterKind::OIDR, &v));
    EXPECT_FALSE(read("1234567890", ParameterKind::OIDR, &v, ParameterToken::Kind::Number));
}

TEST(ParameterKind, TextTakesAnyValueAsWritten) {
    Value v;
    ASSERT_TRUE(read("-3.50", ParameterKind::Text, &v, ParameterToken::Kind::Number));
    EXPECT_EQ(v.toString(), QStringLiteral("-3.50"));
    ASSERT_TRUE(read("   ", ParameterKind::Text, &v));
    EXPECT_EQ(v.toString(), QStringLiteral("   "));
}

// ---- the registry ----

TEST(MethodRegistry, RegistersAndFindsByExactName) {
    MethodRegistry r;
    ASSERT_TRUE(r.Register(debts()).ok());
    ASSERT_TRUE(r.Register(method("DO0201500_GetImportedBROpers")).ok());
    EXPECT_EQ(r.Count(), 2);
    ASSERT_NE(r.Find("GetDebts1"), nullptr);
    EXPECT_EQ(r.Find("GetDebts1")->parameters.size(), 5);
    ASSERT_NE(r.Find("DO0201500_GetImportedBROpers"), nullptr);
}

TEST(MethodRegistry, LookupIsCaseSensitive) {
    MethodRegistry r;
    ASSERT_TRUE(r.Register(debts()).ok());
    EXPECT_EQ(r.Find("getdebts1"), nullptr);
    EXPECT_EQ(r.Find("GETDEBTS1"), nullptr);
    EXPECT_EQ(r.Find("GetDebts1 "), nullptr);
}

TEST(MethodRegistry, RefusesATakenNameInAnyCase) {
    MethodRegistry r;
    ASSERT_TRUE(r.Register(debts()).ok());
    const auto same = r.Register(debts());
    EXPECT_EQ(same.Code, bo_codes::BadRegistration);
    EXPECT_TRUE(same.Text.contains("GetDebts1"));
    EXPECT_FALSE(r.Register(method("GETDEBTS1")).ok());
    EXPECT_EQ(r.Count(), 1);
}

TEST(MethodRegistry, RefusesEmptyOrBlankSurroundedName) {
    MethodRegistry r;
    EXPECT_FALSE(r.Register(method("")).ok());
    EXPECT_FALSE(r.Register(method(" GetX")).ok());
    EXPECT_EQ(r.Count(), 0);
}

TEST(MethodRegistry, RefusesAMethodWithoutHandler) {
    MethodRegistry r;
    MethodDefinition m = method("GetX");
    m.handler = nullptr;
    EXPECT_FALSE(r.Register(m).ok());
    EXPECT_EQ(r.Find("GetX"), nullptr);
}

TEST(MethodRegistry, RefusesRequiredParameterAfterOptional) {
    MethodRegistry r;
    const auto res =
        r.Register(method("GetX", {ParameterSpec::Optional("A", ParameterKind::Text),
                                   ParameterSpec::Required("B", ParameterKind::Text)}));
    EXPECT_FALSE(res.ok());
    EXPECT_TRUE(res.Text.contains("B")) << res.Text.toStdString();
}

TEST(MethodRegistry, RefusesRepeatedParameterThatIsNotLast) {
    MethodRegistry r;
    EXPECT_FALSE(r.Register(method("GetX", {ParameterSpec::Repeated("A", ParameterKind::Text),
                                            ParameterSpec::Required("B", ParameterKind::Text)}))
                     .ok());
}

TEST(MethodRegistry, RefusesUnnamedOrTwiceNamedParameter) {
    MethodRegistry r;
    EXPECT_FALSE(
        r.Register(method("GetX", {ParameterSpec::Required("", ParameterKind::Text)})).ok());
    EXPECT_FALSE(r.Register(method("GetY", {ParameterSpec::Required("A", ParameterKind::Text),
                                            ParameterSpec::Required("A", ParameterKind::Date)}))
                     .ok());
}

TEST(MethodRegistry, RefusesWholeSyntaxWithTwoParameters) {
    MethodRegistry r;
    EXPECT_FALSE(r.Register(method("GetX",
                                   {ParameterSpec::Required("A", ParameterKind::Text),
                                    ParameterSpec::Required("B", ParameterKind::Text)},
                                   ParameterSyntax::Whole))
                     .ok());
}

TEST(MethodRegistry, NamesAreInAlphabeticalOrder) {
    MethodRegistry r;
    ASSERT_TRUE(r.Register(method("GetZ")).ok());
    ASSERT_TRUE(r.Register(method("DO0201500_GetX")).ok());
    ASSERT_TRUE(r.Register(method("GetA")).ok());
    EXPECT_EQ(r.Names(), (QStringList{"DO0201500_GetX", "GetA", "GetZ"}));
}

TEST(MethodRegistry, ListingShowsSignatureSyntaxFieldsAndDoc) {
    MethodRegistry r;
    MethodDefinition m = debts();
    m.fields = {FieldDef::Make("OIDR", FieldType::VarWChar, 20),
                FieldDef::Make("DateD", FieldType::Date),
                FieldDef::Make("SumA", FieldType::Double)};
    m.doc = "Open debts of one account and addressee.";
    ASSERT_TRUE(r.Register(m).ok());
    MethodDefinition s =
        method("GetAccount", {ParameterSpec::Required("Account", ParameterKind::Text)},
               ParameterSyntax::Whole);
    ASSERT_TRUE(r.Register(s).ok());
    const QString listing = r.Listing();
    EXPECT_EQ(listing,
              QStringLiteral("GetAccount(Account: text)\n"
                             "    syntax: whole\n"
                             "    returns: -\n"
                             "\n"
                             "GetDebts1(Kind: integer, Account: text, DateD: date, FOIDR: OIDR, "
                             "[Sign: integer])\n"
                             "    returns: OIDR text, DateD date, SumA number\n"
                             "    Open debts of one account and addressee.\n"
                             "\n"));
}

TEST(MethodRegistry, ListingRecordsetHasOneRowPerMethod) {
    MethodRegistry r;
    ASSERT_TRUE(r.Register(debts()).ok());
    ASSERT_TRUE(r.Register(method("GetA", {}, ParameterSyntax::Semicolon)).ok());
    RecordsetPtr rs = r.ListingRecordset();
    ASSERT_TRUE(rs);
    ASSERT_EQ(rs->RecordCount(), 2);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Name").toString(), QStringLiteral("GetA"));
    EXPECT_EQ(rs->Field("Syntax").toString(), QStringLiteral("semicolon"));
    rs->MoveNext();
    EXPECT_EQ(rs->Field("Name").toString(), QStringLiteral("GetDebts1"));
    EXPECT_TRUE(rs->Field("Parameters").toString().contains("DateD: date"));
    EXPECT_EQ(rs->Field("Syntax").toString(), QStringLiteral("quoted"));
}

// ---- binding a parameter text to a registration ----

TEST(MethodArguments, WrongCountNamesMethodExpectedAndGiven) {
    MethodArguments a;
    MethodDefinition m = debts();
    m.parameters.removeLast();
    const auto r = MethodArguments::Bind(m, "'0','2410','2024.03.15'", Value(), &a);
    EXPECT_EQ(r.Code, bo_codes::WrongParameterCount);
    EXPECT_EQ(r.Text, QStringLiteral("Metodas GetDebts1: tikėtasi 4 parametrų, gauta 3"));
}

TEST(MethodArguments, WrongCountUsesTheSingularAfterOneAndTwentyOne) {
    MethodArguments a;
    auto one = method("GetX", {ParameterSpec::Required("A", ParameterKind::Text)});
    EXPECT_EQ(MethodArguments::Bind(one, "None", Value(), &a).Text,
              QStringLiteral("Metodas GetX: tikėtasi 1 parametro, gauta 0"));
    QVector<ParameterSpec> many;
    for (int i = 0; i < 21; ++i)
        many.append(ParameterSpec::Required(QStringLiteral("P%1").arg(i), ParameterKind::Text));
    EXPECT_EQ(MethodArguments::Bind(method("GetY", many), "'a'", Value(), &a).Text,
              QStringLiteral("Metodas GetY: tikėtasi 21 parametro, gauta 1"));
    many.resize(11);
    EXPECT_EQ(MethodArguments::Bind(method("GetZ", many), "'a'", Value(), &a).Text,
              QStringLiteral("Metodas GetZ: tikėtasi 11 parametrų, gauta 1"));
}

TEST(MethodArguments, WrongCountWithOptionalParametersGivesTheRange) {
    MethodArguments a;
    const auto r = MethodArguments::Bind(debts(), "'0','2410'", Value(), &a);
    EXPECT_EQ(r.Text, QStringLiteral("Metodas GetDebts1: tikėtasi nuo 4 iki 5 parametrų, gauta 2"));
    const auto tooMany =
        MethodArguments::Bind(debts(), "'0','2410','2024.03.15','',1,1", Value(), &a);
    EXPECT_EQ(tooMany.Code, bo_codes::WrongParameterCount);
    EXPECT_EQ(tooMany.Text,
              QStringLiteral("Metodas GetDebts1: tikėtasi nuo 4 iki 5 parametrų, gauta 6"));
}

TEST(MethodArguments, WrongCountWithRepeatedParameterSaysAtLeast) {
    MethodArguments a;
    auto m = method("GetX", {ParameterSpec::Repeated("Ids", ParameterKind::Integer)});
    EXPECT_EQ(MethodArguments::Bind(m, "", Value(), &a).Text,
              QStringLiteral("Metodas GetX: tikėtasi bent 1 parametro, gauta 0"));
}

TEST(MethodArguments, WrongKindNamesParameterValueAndPosition) {
    MethodArguments a;
    const auto r = MethodArguments::Bind(debts(), "'0','2410','2024.13.01',''", Value(), &a);
    EXPECT_EQ(r.Code, bo_codes::WrongParameterKind);
    EXPECT_EQ(r.Text, QStringLiteral("Metodas GetDebts1: parametro DateD reikšmė '2024.13.01' "
                                     "(12 pozicijoje) netinka: laukta data (yyyy.mm.dd)"));
    const auto oidr =
        MethodArguments::Bind(debts(), "'0','2410','2024.03.15','Jonas'", Value(), &a);
    EXPECT_EQ(oidr.Code, bo_codes::WrongParameterKind);
    EXPECT_TRUE(oidr.Text.contains("parametro FOIDR reikšmė 'Jonas'")) << oidr.Text.toStdString();
    EXPECT_EQ(a.Count(), 0) << "a refused binding leaves the arguments untouched";
}

TEST(MethodArguments, MalformedTextIsRefusedWithTheMethodName) {
    MethodArguments a;
    const auto r = MethodArguments::Bind(debts(), "'0','2410", Value(), &a);
    EXPECT_EQ(r.Code, bo_codes::BadParameterText);
    EXPECT_EQ(r.Text, QStringLiteral("Metodas GetDebts1: klaidingas parametrų tekstas: "
                                     "neuždaryta kabutė, atidaryta 5 pozicijoje"));
}

TEST(MethodArguments, TypedValuesByNameAndPosition) {
    MethodArguments a;
    ASSERT_TRUE(
        MethodArguments::Bind(debts(), "'0', '2410' ,'2024.03.15','O0000100123',-1", Value(), &a)
            .ok());
    EXPECT_EQ(a.Count(), 5);
    EXPECT_EQ(a.GivenCount(), 5);
    EXPECT_EQ(a.At(0).kind(), Value::Kind::Int32);
    EXPECT_EQ(a.Integer("Kind"), 0);
    EXPECT_EQ(a.Text("Account"), QStringLiteral("2410"));
    EXPECT_EQ(a.Date("DateD"), QDate(2024, 3, 15));
    EXPECT_EQ(a.Text("FOIDR"), QStringLiteral("O0000100123"));
    EXPECT_EQ(a.Integer("Sign"), -1);
    EXPECT_TRUE(a.IsGiven("Sign"));
    EXPECT_TRUE(a.Get("NoSuchParameter").isNull());
    EXPECT_TRUE(a.At(7).isNull());
}

TEST(MethodArguments, LeftOutOptionalParameterGetsItsDefault) {
    MethodArguments a;
    ASSERT_TRUE(MethodArguments::Bind(debts(), "'0','2410','2024-03-15',''", Value(), &a).ok());
    EXPECT_EQ(a.Count(), 5);
    EXPECT_EQ(a.GivenCount(), 4);
    EXPECT_FALSE(a.IsGiven("Sign"));
    EXPECT_EQ(a.Integer("Sign"), 1);
    EXPECT_EQ(a.Date("DateD"), QDate(2024, 3, 15));
}

TEST(MethodArguments, RepeatedParameterCollectsTheRestAsAnArray) {
    MethodArguments a;
    auto m = method("GetX", {ParameterSpec::Required("Date", ParameterKind::Date),
                             ParameterSpec::Repeated("Ids", ParameterKind::Integer)});
    ASSERT_TRUE(MethodArguments::Bind(m, "'2024.01.31',4,'5',6", Value(), &a).ok());
    const ValueArray& ids = a.Array("Ids");
    ASSERT_EQ(ids.size(), 3);
    EXPECT_EQ(ids[0].toInt32(), 4);
    EXPECT_EQ(ids[1].toInt32(), 5);
    EXPECT_EQ(ids[2].toInt32(), 6);
    const auto bad = MethodArguments::Bind(m, "'2024.01.31',4,'x'", Value(), &a);
    EXPECT_EQ(bad.Code, bo_codes::WrongParameterKind);
    EXPECT_TRUE(bad.Text.contains("parametro Ids reikšmė 'x' (16 pozicijoje)"))
        << bad.Text.toStdString();
}

TEST(MethodArguments, SemicolonMethodReadsItsPieces) {
    MethodArguments a;
    auto m = method("GetX",
                    {ParameterSpec::Required("Group", ParameterKind::Integer),
                     ParameterSpec::Required("Clicked", ParameterKind::Text),
                     ParameterSpec::Optional("Currency", ParameterKind::Text)},
                    ParameterSyntax::Semicolon);
    ASSERT_TRUE(MethodArguments::Bind(m, "17;a,b@|@c;   ", Value(), &a).ok());
    EXPECT_EQ(a.Integer("Group"), 17);
    EXPECT_EQ(a.Text("Clicked"), QStringLiteral("a,b@|@c"));
    EXPECT_EQ(a.Text("Currency"), QStringLiteral("   "));
}

TEST(MethodArguments, InputIsCarriedToTheHandler) {
    MethodArguments a;
    auto m = method("DO0201500_Save");
    ASSERT_TRUE(MethodArguments::Bind(m, "None", Value("rows"), &a).ok());
    EXPECT_EQ(a.Input().toString(), QStringLiteral("rows"));
}

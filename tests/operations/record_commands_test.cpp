// CreateProtocol, GetCurrencyList, CurrencyRates and CheckContractSums.
#include "host_stand_ins.h"

#include "operations/record_commands.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class RecordCommandsTest : public OperationFixture {
protected:
    void Currencies() {
        bo->handlers.insert("GetCurrencyList", [this](const QString& p, const Value&) {
            currencyQueries.append(p);
            return BOResult::Of(
                Value(Table({F("Code"), F("BaseCurrency"), F("Rate"), F("CurrencyRate")},
                            {{"EUR", 1, 1.0, 1.0},
                             {"USD", 0, 0.92, 1.086957},
                             {"USD", 0, 0.5, 2.0},
                             {"GBP", 0, 1.16, 0.862069}})));
        });
    }
    std::shared_ptr<SmallObject> Contracts(double trade, double total) {
        auto contracts = std::make_shared<SmallObject>("O3010100");
        contracts->properties = [trade, total](const QString&, const QString&) {
            return ValueResult::Of(Value(Table(
                {F("TradeCommonSum"), F("ContractTotalSum"), F("ContractName"), F("CurrencyName")},
                {{trade, total, "S-15", "EUR"}})));
        };
        objects->objects.insert("O3010100", contracts);
        return contracts;
    }
    QStringList currencyQueries;
};

} // namespace

TEST_F(RecordCommandsTest, CreateProtocolOfANewOperationStampsMakerAndChanger) {
    ASSERT_TRUE(op->Methods("CreateProtocol", {}).Value.toBool());
    EXPECT_EQ(op->Field("CreatedByUserOIDR").toString(), "O0001500007");
    EXPECT_EQ(op->Field("CreatedByUserName").toString(), "Ona Buhalterė");
    EXPECT_EQ(op->Field("ChangedByUserName").toString(), "Ona Buhalterė");
    EXPECT_EQ(op->Field("CreationDate").toDate(), QDate(2024, 3, 15));
    EXPECT_EQ(op->Field("CorrectionDate").toDate(), QDate(2024, 3, 15));
}

TEST_F(RecordCommandsTest, CreateProtocolOfAStoredOperationStampsOnlyTheChanger) {
    op->Core().SetOIDR("O0201500123");
    op->SetField("CreatedByUserName", "Jonas");
    op->Methods("CreateProtocol", {});
    EXPECT_EQ(op->Field("CreatedByUserName").toString(), "Jonas");
    EXPECT_TRUE(op->Field("CreationDate").isNull());
    EXPECT_EQ(op->Field("ChangedByUserName").toString(), "Ona Buhalterė");
}

TEST_F(RecordCommandsTest, CreateProtocolCutsALongNameToTheFieldsSize) {
    session->user.Name = QString(150, QChar('A'));
    ASSERT_EQ(op->Methods("CreateProtocol", {}).Code, 0);
    EXPECT_EQ(op->Field("ChangedByUserName").toString().size(), OperationRecord::UserNameSize);
}

TEST_F(RecordCommandsTest, GetCurrencyListMapsForeignCodesToRatesFirstRowWinning) {
    Currencies();
    const ValueResult r = op->Methods("GetCurrencyList", {QDate(2024, 3, 15)});
    const DictionaryPtr map = r.Value.toDictionary();
    ASSERT_TRUE(map);
    EXPECT_EQ(map->Keys(), QStringList({"USD", "GBP"}));
    EXPECT_DOUBLE_EQ(map->Item("USD").toDouble(), 0.92);
    EXPECT_EQ(currencyQueries.last(), "'2024.03.15'");
}

TEST_F(RecordCommandsTest, GetCurrencyListWithTheFlagTakesTheQuotedRate) {
    Currencies();
    const DictionaryPtr map = op->Methods("GetCurrencyList", {"", true}).Value.toDictionary();
    EXPECT_DOUBLE_EQ(map->Item("USD").toDouble(), 1.086957);
    EXPECT_EQ(currencyQueries.last(), "'1990.01.01'");
}

TEST_F(RecordCommandsTest, GetCurrencyListThatCannotBeReadIsAnEmptyMap) {
    const ValueResult r = op->Methods("GetCurrencyList", {});
    ASSERT_TRUE(r.Value.toDictionary());
    EXPECT_EQ(r.Value.toDictionary()->Count(), 0);
    EXPECT_EQ(op->Methods("GetCurrencyList", {"", true, 1}).Text,
              "Method GetCurrencyList:\nKlaidingi parametrai !");
}

TEST_F(RecordCommandsTest, CurrencyRatesPassesTheCommandToTheHostsCurrencyWithToday) {
    auto currency = std::make_shared<SmallObject>("O0002200");
    objects->objects.insert("O0002200", currency);
    op->Methods("CurrencyRates", {});
    EXPECT_EQ(currency->commands, QStringList({"CurrencyRates"}));
    ASSERT_EQ(currency->lastParameters.size(), 2);
    EXPECT_EQ(currency->lastParameters.at(1).toDate(), QDate(2024, 3, 15));
    op->Methods("CurrencyRates", {0.92, QDate(2024, 1, 2)});
    EXPECT_DOUBLE_EQ(currency->lastParameters.at(0).toDouble(), 0.92);
    EXPECT_EQ(currency->lastParameters.at(1).toDate(), QDate(2024, 1, 2));
}

TEST_F(RecordCommandsTest, CurrencyRatesWithoutTheHostsCurrencyIsFalse) {
    EXPECT_FALSE(op->Methods("CurrencyRates", {}).Value.toBool());
    EXPECT_EQ(op->Methods("CurrencyRates", {0.92}).Text,
              "Method CurrencyRates_0:\nKlaidingi parametrai !");
}

TEST_F(RecordCommandsTest, ContractOverrunGivesCode4WithTheExcess) {
    settings->values.insert("Contract/IsShowMessageForContractSumOver", "1");
    AddBR({"2410", "5000", 10.0, ValueArray{qint16(1), "O301010055", "Sutartis S-15"}});
    auto contracts = Contracts(1250.5, 1000.0);
    const ValueResult r = op->Methods("CheckContractSums", {});
    EXPECT_EQ(r.Code, 4);
    EXPECT_EQ(r.Text, "Sutarties Nr. S-15 vertė viršyta 250,50 EUR!");
    EXPECT_EQ(contracts->asked, QStringList({"ContractTotalSums('O301010055')"}));
    EXPECT_TRUE(messages->boxes.isEmpty());
}

TEST_F(RecordCommandsTest, ContractWithinItsValueSaysNothing) {
    settings->values.insert("Contract/IsShowMessageForContractSumOver", "1");
    AddBR({"2410", "5000", 10.0, ValueArray{qint16(1), "O301010055", "Sutartis S-15"}});
    Contracts(900.0, 1000.0);
    EXPECT_EQ(op->Methods("CheckContractSums", {}).Code, 0);
}

TEST_F(RecordCommandsTest, ContractCheckIsOffUnlessTheSettingSaysSo) {
    AddBR({"2410", "5000", 10.0, ValueArray{qint16(1), "O301010055", "Sutartis S-15"}});
    auto contracts = Contracts(1250.5, 1000.0);
    EXPECT_EQ(op->Methods("CheckContractSums", {}).Code, 0);
    EXPECT_TRUE(contracts->asked.isEmpty());
}

TEST(FormatHashDotZeroZero, WritesTwoDecimalsWithoutALeadingZero) {
    EXPECT_EQ(RecordCommands::FormatHashDotZeroZero(0.5), ",50");
    EXPECT_EQ(RecordCommands::FormatHashDotZeroZero(1234.5), "1234,50");
}

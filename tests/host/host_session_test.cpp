// A session on a real book, on both backends: catalogue records read and stored through
// their data objects, currency rates by date, rights, settings, and the refusal of an
// unknown user.
#include "core/recordset.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_rights_service.h"
#include "frame/orvo_services.h"
#include "frame/orvo_session_service.h"
#include "frame/orvo_settings_service.h"
#include "host/session/host_session.h"
#include "storage_fixture.h"

namespace orvo::host {
namespace {

using testing::StorageTest;

class HostSessionTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        SessionResult r = HostSession::Open(location_, OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
    }
    void TearDown() override {
        session_.reset();
        StorageTest::TearDown();
    }

    OrvoObjectUIOPtr Object(const QString& codeOrOidr) {
        return session_->Services()->ObjectsService()->GetObjectUIO(codeOrOidr);
    }

    std::unique_ptr<HostSession> session_;
};

TEST_P(HostSessionTest, NewBookOpensForItsAdministrator) {
    EXPECT_EQ(session_->User().Code, QStringLiteral("admin"));
    EXPECT_TRUE(session_->UserIsAdmin());
    EXPECT_EQ(session_->Services()->Constants()->Title(), QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(
        session_->Services()->Constants()->GetConstant(QStringLiteral("BaseCurrency")).toString(),
        QStringLiteral("EUR"));
}

TEST_P(HostSessionTest, FirmIsStoredAndReadBackThroughItsDataObject) {
    OrvoObjectUIOPtr firm = Object(QStringLiteral("O0000100"));
    ASSERT_TRUE(firm);
    EXPECT_LT(firm->OIDR().size(), 9);
    ASSERT_TRUE(firm->SetField(QStringLiteral("Name"), QStringLiteral("UAB Ąžuolas")));
    ASSERT_TRUE(firm->SetField(QStringLiteral("Code"), QStringLiteral("300000001")));
    ASSERT_TRUE(firm->SetField(QStringLiteral("City"), QStringLiteral("Šiauliai")));
    const ResultRecord saved = firm->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    ASSERT_GE(firm->OIDR().size(), 9);

    OrvoObjectUIOPtr again = Object(firm->OIDR());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->Field(QStringLiteral("Name")).toString(), QStringLiteral("UAB Ąžuolas"));
    EXPECT_EQ(again->Field(QStringLiteral("City")).toString(), QStringLiteral("Šiauliai"));
    EXPECT_EQ(again->OName(), QStringLiteral("UAB Ąžuolas"));

    again->SetField(QStringLiteral("City"), QStringLiteral("Kaunas"));
    ASSERT_TRUE(again->Save().ok());
    EXPECT_EQ(Object(firm->OIDR())->Field(QStringLiteral("City")).toString(),
              QStringLiteral("Kaunas"));
}

TEST_P(HostSessionTest, FirmWithoutNameIsRefusedAndNothingStored) {
    OrvoObjectUIOPtr firm = Object(QStringLiteral("O0000100"));
    ASSERT_TRUE(firm);
    const ResultRecord saved = firm->Save();
    EXPECT_EQ(saved.Code, 777);
    EXPECT_EQ(saved.Text, QStringLiteral("Įveskite įmonės pavadinimą."));
    EXPECT_EQ(session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM Firms")).Scalar().toInt32(),
              0);
}

TEST_P(HostSessionTest, UnknownKindGivesNoObject) {
    EXPECT_FALSE(Object(QStringLiteral("O9999999")));
}

TEST_P(HostSessionTest, CurrencyListGivesLatestRateOnOrBeforeDate) {
    OrvoObjectUIOPtr usd = Object(QStringLiteral("O0002200"));
    ASSERT_TRUE(usd);
    usd->SetField(QStringLiteral("Code"), QStringLiteral("USD"));
    usd->SetField(QStringLiteral("Name"), QStringLiteral("JAV doleris"));
    ASSERT_TRUE(usd->Save().ok());
    BusinessObjectPtr bo = session_->BO();
    ASSERT_TRUE(
        bo->Call(QStringLiteral("SaveDayRate"), QStringLiteral("'USD','2024.03.01',0.92")).ok());
    ASSERT_TRUE(
        bo->Call(QStringLiteral("SaveDayRate"), QStringLiteral("'USD','2024.03.05',0.9")).ok());

    auto rateOn = [&](const QString& date) {
        const BOResult r = bo->Call(QStringLiteral("GetCurrencyList"),
                                    QStringLiteral("'") + date + QStringLiteral("'"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        RecordsetPtr rs = r.Data.toRecordset();
        rs->SetFilter(QStringLiteral("Code = 'USD'"));
        return std::make_pair(rs->Field(QStringLiteral("Rate")).toDouble(),
                              rs->Field(QStringLiteral("CurrencyRate")).toDouble());
    };
    EXPECT_DOUBLE_EQ(rateOn(QStringLiteral("2024.03.04")).first, 0.92);
    EXPECT_DOUBLE_EQ(rateOn(QStringLiteral("2024.03.05")).first, 0.9);
    EXPECT_DOUBLE_EQ(rateOn(QStringLiteral("2024.03.31")).first, 0.9);
    // Under a euro base the quoted rate is units per euro.
    EXPECT_DOUBLE_EQ(rateOn(QStringLiteral("2024.03.31")).second, 1.0 / 0.9);
    EXPECT_DOUBLE_EQ(rateOn(QStringLiteral("2024.02.29")).first, 0.0);

    const BOResult byCode = bo->Call(QStringLiteral("GetCurrencyByCode"), QStringLiteral("'USD'"));
    ASSERT_TRUE(byCode.ok());
    EXPECT_EQ(byCode.Data.toRecordset()->Field(QStringLiteral("OIDR")).toString(), usd->OIDR());
    EXPECT_NE(bo->Call(QStringLiteral("SaveDayRate"), QStringLiteral("'XXX','2024.03.01',1")).Code,
              0);
}

TEST_P(HostSessionTest, CurrencyObjectWordsItsSums) {
    OrvoObjectUIOPtr eur = Object(QStringLiteral("O0002200"));
    ASSERT_TRUE(eur);
    eur->SetField(QStringLiteral("Code"), QStringLiteral("EUR"));
    const ValueResult words = eur->Methods(QStringLiteral("SumByWords"), {Value(21.5)});
    ASSERT_TRUE(words.ok()) << words.Text.toStdString();
    EXPECT_EQ(words.Value.toString(), QStringLiteral("Dvidešimt vienas euras 50 ct"));
}

TEST_P(HostSessionTest, RightsComeFromTheBookAndAdministratorHoldsAll) {
    Database& db = session_->Db();
    ASSERT_TRUE(
        db.Execute(
              QStringLiteral("INSERT INTO Users (Code, Name, IsAdmin) VALUES ('rita', 'Rita', 0)"))
            .ok());
    const qint32 rita =
        db.Query(QStringLiteral("SELECT ID FROM Users WHERE Code = 'rita'")).Scalar().toInt32();
    ASSERT_TRUE(
        db.Execute(QStringLiteral(
                       "INSERT INTO Rights (UserID, RightKey, ReadFlag, EditFlag, DeleteFlag, "
                       "CreateFlag, FifthFlag) VALUES (?, 'CBROperRights17', 1, 1, 0, 1, 0)"),
                   {Value(rita)})
            .ok());
    OrvoRightsServicePtr rights = session_->Services()->RightsService();
    EXPECT_TRUE(rights->DeleteRight(QStringLiteral("CBROperRights17")));
    EXPECT_TRUE(rights->ReadRight(QStringLiteral("CBROperRights17"), QStringLiteral("rita")));
    EXPECT_FALSE(rights->DeleteRight(QStringLiteral("CBROperRights17"), QStringLiteral("rita")));
    EXPECT_FALSE(rights->ReadRight(QStringLiteral("CBROperRights18"), QStringLiteral("rita")));

    session_.reset();
    SessionResult asRita = HostSession::Open(location_, OpenMode::Existing, QStringLiteral("rita"));
    ASSERT_TRUE(asRita.ok()) << asRita.Text.toStdString();
    EXPECT_FALSE(asRita.Session->Services()->RightsService()->DeleteRight(
        QStringLiteral("CBROperRights17")));
    EXPECT_TRUE(asRita.Session->Services()->RightsService()->CreateRight(
        QStringLiteral("CBROperRights17")));
}

TEST_P(HostSessionTest, SettingsAreKeptPerSectionAndKey) {
    OrvoSettingsServicePtr settings = session_->Services()->SettingsService();
    EXPECT_EQ(settings->GetSetting(QStringLiteral("Kontavo"), QStringLiteral("Templates"),
                                   QStringLiteral("-")),
              QStringLiteral("-"));
    settings->SaveSetting(QStringLiteral("Kontavo"), QStringLiteral("Templates"),
                          QStringLiteral("C:/šablonai"));
    settings->SaveSetting(QStringLiteral("Kontavo"), QStringLiteral("Templates"),
                          QStringLiteral("/srv/šablonai"));
    EXPECT_EQ(settings->GetSetting(QStringLiteral("Kontavo"), QStringLiteral("Templates")),
              QStringLiteral("/srv/šablonai"));
    EXPECT_EQ(settings->GetSetting(QStringLiteral("O0201500"), QStringLiteral("Templates"),
                                   QStringLiteral("x")),
              QStringLiteral("x"));
}

TEST_P(HostSessionTest, UnknownUserIsRefusedClearly) {
    session_.reset();
    SessionResult r = HostSession::Open(location_, OpenMode::Existing, QStringLiteral("nėra"));
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.Text, QStringLiteral("Naudotojas „nėra“ knygoje nerastas."));
}

ORVO_STORAGE_BACKENDS(HostSessionTest);

} // namespace
} // namespace orvo::host

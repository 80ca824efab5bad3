#include "settlement/currency_exchange.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_settings_service.h"
#include "settlement/currency_revaluation_entry.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");
// Rates are typed and shown with six places.
constexpr int kRatePlaces = 6;

bool isBlank(const QString& code) {
    return code.trimmed().isEmpty();
}

OrvoSettingsServicePtr settings() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->SettingsService() : nullptr;
}

double typedRate(const CurrencyExchange::Side& side) {
    return RoundHalfUp(NumberFromText(side.RateText), kRatePlaces);
}

} // namespace

CurrencyExchange::CurrencyExchange(OrvoObjectUIOPtr operation)
    : accounts(Dictionary::Create()), currencyRates(Dictionary::Create()),
      op_(std::move(operation)) {}

QString CurrencyExchange::SettingsSection() {
    return QStringLiteral("O0201500");
}

void CurrencyExchange::Open() {
    accounts = Catalogue::AccountList(op_);
    const DictionaryPtr roles = Catalogue::PresetAccountCodes(op_);
    const QString role536 = NzString(roles->Item(QStringLiteral("536")));
    const QString role636 = NzString(roles->Item(QStringLiteral("636")));
    if (role536.isEmpty() || role636.isEmpty())
        ShowWarning(QStringLiteral(
            "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!"));
    const OrvoSettingsServicePtr s = settings();
    const QString kept536 =
        s ? s->GetSetting(SettingsSection(), QStringLiteral("Clone536")) : QString();
    const QString kept636 =
        s ? s->GetSetting(SettingsSection(), QStringLiteral("Clone636")) : QString();
    accountPositive = kept536.isEmpty() ? role536 : kept536;
    accountNegative = kept636.isEmpty() ? role636 : kept636;

    const ValueResult banks = op_->Properties(QStringLiteral("MyFirmAccounts"), QString());
    bankAccounts = banks.ok() ? banks.Value.toRecordset() : nullptr;
    const QString main = Catalogue::MyMainAccount(op_);
    debit.BankAccount = main;
    credit.BankAccount = main;
    SetDate(NzDate(op_->Field(QStringLiteral("DateD")), Today()));
}

void CurrencyExchange::SetDate(const QDate& newDate) {
    date = newDate;
    currencyRates = Catalogue::CurrencyListFor(op_, date, Catalogue::BaseIsEuro());
}

QString CurrencyExchange::DayRateText(const QString& code) const {
    if (isBlank(code) || !currencyRates->Exists(code))
        return QString();
    const double rate = NzDouble(currencyRates->Item(code));
    return rate > 0 ? FormatNumberLt(rate, kRatePlaces, false) : QString();
}

ValueArray CurrencyExchange::bankAddressees(const Side& side, qint16 sign) const {
    ValueArray list;
    if (side.BankAccount.isEmpty() || !bankAccounts)
        return list;
    for (bankAccounts->MoveFirst(); !bankAccounts->Eof(); bankAccounts->MoveNext()) {
        if (NzString(bankAccounts->Field(QStringLiteral("AccOIDR"))) != side.BankAccount)
            continue;
        list << Value(sign) << bankAccounts->Field(QStringLiteral("OIDR"))
             << Value(NzString(bankAccounts->Field(QStringLiteral("Name")))) << Value(sign)
             << Value(side.BankAccount)
             << Value(NzString(bankAccounts->Field(QStringLiteral("AccountNumber"))));
        break;
    }
    return list;
}

bool CurrencyExchange::Post() {
    title = QStringLiteral("Valiutos pirkimas/pardavimas");
    outcome = Outcome();
    QString message;
    // One side's rate, sum and base value; a blank currency names the title.
    const auto value = [&](const Side& side, const QString& baseTitle, double& rate, double& sum,
                           double& base) {
        sum = Round(NumberFromText(side.SumText), 2);
        if (isBlank(side.Currency)) {
            title = baseTitle;
            base = sum;
            return;
        }
        const double typed = typedRate(side);
        if (!(typed > 0)) {
            message = QStringLiteral("Nenurodytas valiutos kursas!");
            return;
        }
        rate = Catalogue::RateToBase(typed);
        // This window adds 0.0001 before rounding, ten times the usual addend.
        base = Round(rate * sum + 0.0001, 2);
    };
    double rateD = 0, rateC = 0, sumD = 0, sumC = 0, baseD = 0, baseC = 0;
    const bool currD = !isBlank(debit.Currency);
    const bool currC = !isBlank(credit.Currency);
    value(debit, QStringLiteral("Valiutos pardavimas"), rateD, sumD, baseD);
    value(credit, QStringLiteral("Valiutos pirkimas"), rateC, sumC, baseC);
    if (!message.isEmpty()) {
        ShowWarning(message);
        return false;
    }

    const ValueArray addrD = bankAddressees(debit, 1);
    const ValueArray addrC = bankAddressees(credit, -1);

    // The movement goes at the smaller base value; the larger side's rate follows it.
    double difference = 0;
    if (!(baseD > baseC)) {
        difference = Round(baseC - baseD, 2);
        if (currC && sumC != 0)
            rateC = RoundHalfUp(baseD / sumC, 9);
    } else {
        difference = Round(baseD - baseC, 2);
        if (currD && sumD != 0)
            rateD = RoundHalfUp(baseC / sumD, 9);
    }
    outcome = {baseD, baseC, rateD, rateC, difference};

    op_->SetField(QStringLiteral("Comment"), Value(title));

    ValueArray movementAddressees = addrD;
    movementAddressees << addrC;
    const QString entryDate = DateParam(date);
    ValueArray movement;
    if (currD)
        movement = {Value(debit.Account),
                    Value(credit.Account),
                    Value(sumD),
                    Value(movementAddressees),
                    Value(qint16(1)),
                    Value(debit.Currency),
                    Value(rateD),
                    Value(currC ? sumC : 0.0),
                    Value(currC ? credit.Currency : kNoCurrency),
                    Value(currC ? rateC : 0.0),
                    Value(QString()),
                    Value(QString()),
                    Value(entryDate)};
    else if (currC)
        movement = {Value(debit.Account), Value(credit.Account),
                    Value(sumC),          Value(movementAddressees),
                    Value(qint16(-1)),    Value(credit.Currency),
                    Value(rateC),         Value(0.0),
                    Value(kNoCurrency),   Value(0.0),
                    Value(QString()),     Value(QString()),
                    Value(entryDate)};
    else
        // Two base sums: the smaller moves, the rest is the difference below.
        movement = {Value(debit.Account),
                    Value(credit.Account),
                    Value(qMin(baseD, baseC)),
                    Value(movementAddressees),
                    Value(qint16(0)),
                    Value(kNoCurrency),
                    Value(0.0),
                    Value(0.0),
                    Value(kNoCurrency),
                    Value(0.0),
                    Value(QString()),
                    Value(QString()),
                    Value(entryDate)};
    const ValueResult moved = op_->Methods(QStringLiteral("AddBR"), movement);
    if (!moved.ok() || moved.Value.toString().isEmpty())
        return false;

    if (difference != 0) {
        RateChangeEntry entry;
        entry.Amount = difference;
        entry.Date = entryDate;
        if (baseC > baseD) {
            entry.AccountD = accountNegative;
            entry.AccountC = credit.Account;
            entry.Sign = -1;
            entry.CurrencyCode = credit.Currency;
            entry.Addressees = addrC;
        } else {
            entry.AccountD = debit.Account;
            entry.AccountC = accountPositive;
            entry.Sign = 1;
            entry.CurrencyCode = debit.Currency;
            entry.Addressees = addrD;
        }
        const ValueResult added = AddRateChangeEntry(op_, entry);
        if (!added.ok() || added.Value.toString().isEmpty())
            return false;
    }

    if (const OrvoSettingsServicePtr s = settings()) {
        s->SaveSetting(SettingsSection(), QStringLiteral("Clone636"), accountNegative);
        s->SaveSetting(SettingsSection(), QStringLiteral("Clone536"), accountPositive);
    }
    SaveDayRate(debit);
    SaveDayRate(credit);
    return true;
}

bool CurrencyExchange::SaveDayRate(const Side& side) {
    if (isBlank(side.Currency))
        return false;
    const double typed = typedRate(side);
    if (!(typed > 0))
        return false;
    const double kept = NzDouble(currencyRates->Item(side.Currency));
    if (RoundHalfUp(kept, kRatePlaces) == typed)
        return false;
    const OrvoObjectUIOPtr currency = Catalogue::CurrencyObject(side.Currency);
    if (!currency)
        return false;
    const ValueResult saved =
        currency->Methods(QStringLiteral("SaveDayRate"),
                          {Value(date), Value(Catalogue::RateToBase(typed)), Value(typed)});
    if (!saved.ok())
        return false;
    currencyRates = Catalogue::CurrencyListFor(op_, date, Catalogue::BaseIsEuro());
    return true;
}

} // namespace orvo

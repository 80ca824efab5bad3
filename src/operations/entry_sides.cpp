#include "operations/entry_sides.h"

#include "core/rounding.h"
#include "frame/methods_convention.h"
#include "model/operation_record.h"
#include "operations/command_parameters.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

QString wrongParameters(const QString& method) {
    return QStringLiteral("Method ") + method + QStringLiteral(":") +
           MethodsConvention::LineBreak() + QStringLiteral("Klaidingi parametrai !") +
           MethodsConvention::LineBreak();
}

QString quotedNumber(double value) {
    return QStringLiteral("'") + Value(value).toString() + QStringLiteral("'");
}

QString quotedText(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

} // namespace

bool EntrySides::IsCurrency(const QString& code) {
    return code.size() == 3 && code != kNoCurrency;
}

double EntrySides::BaseSum() const {
    if (RateD > 0)
        return RoundBaseSum(RateD * Sum);
    if (SumC > 0)
        return RoundBaseSum(SumC * RateC);
    return RoundBaseSum(Sum);
}

QString EntrySides::ParameterFault(const QString& command, const QString& accountD,
                                   const QString& accountC, bool checkAccounts) const {
    bool sound = Sign == 1 || Sign == -1 || Sign == 0;
    if (checkAccounts && (accountD.isEmpty() || accountC.isEmpty()))
        sound = false;
    if (IsCurrency(CurrD) && !(RateD > 0 && Sum > 0))
        sound = false;
    if (IsCurrency(CurrC) && !(RateC > 0 && SumC > 0))
        sound = false;
    if (RateD > 0 && !(Sum > 0))
        sound = false;
    if ((RateC > 0) != (SumC > 0))
        sound = false;
    if (sound)
        return QString();
    const QStringList values = {
        quotedText(accountD), quotedText(accountC), quotedNumber(Sum),
        quotedText(CurrD),    quotedNumber(RateD),  quotedNumber(SumC),
        quotedText(CurrC),    quotedNumber(RateC),  quotedText(QString::number(Sign))};
    return wrongParameters(command + QStringLiteral("_1")) + values.join(QLatin1Char(','));
}

QString EntrySides::AddresseesFault(const QString& command, const ValueArray& addressees) {
    if (addressees.size() % 3 == 0)
        return QString();
    return wrongParameters(command + QStringLiteral("_2")) + QStringLiteral("n=") +
           QString::number(addressees.size() - 1);
}

bool EntrySides::SidesDisagree() const {
    if (!(RateD > 0 && Sum > 0 && SumC > 0))
        return false;
    return RoundBaseSum(Sum * RateD) != RoundBaseSum(SumC * RateC);
}

void EntrySides::WriteEuroRates(const RecordsetPtr& br, MaybeFailure& failure) const {
    if (RateD > 0) {
        const QString field =
            Sign == 1 ? QStringLiteral("CurrencyRateD") : QStringLiteral("CurrencyRateC");
        WriteField(br, field, Value(Round(1.0 / RateD, 6)), failure);
    } else if (RateC > 0) {
        // The side of the field is named by Sign alone, as for the debit rate above.
        const QString field =
            Sign == -1 ? QStringLiteral("CurrencyRateD") : QStringLiteral("CurrencyRateC");
        WriteField(br, field, Value(Round(1.0 / RateC, 6)), failure);
    }
}

void EntrySides::BlankBaseCurrency(const QString& baseCurrency) {
    if (CurrD == baseCurrency)
        CurrD = kNoCurrency;
    if (CurrC == baseCurrency)
        CurrC = kNoCurrency;
}

void EntrySides::addCurrencyRow(const RecordsetPtr& brCurrency, const QString& guid, qint16 sign,
                                double rate, double sum, const QString& code,
                                MaybeFailure& failure) const {
    if (failure || !brCurrency)
        return;
    brCurrency->AddNew();
    WriteField(brCurrency, QStringLiteral("BRGUID"), Value(guid), failure);
    WriteField(brCurrency, QStringLiteral("Sign"), Value(sign), failure);
    WriteField(brCurrency, QStringLiteral("RateCurr"), Value(rate), failure);
    WriteField(brCurrency, QStringLiteral("SumCurr"), Value(sum), failure);
    WriteField(brCurrency, QStringLiteral("FCurrencyCode"), Value(code), failure);
    brCurrency->Update();
}

void EntrySides::WriteCurrencyRows(const RecordsetPtr& brCurrency, const QString& guid,
                                   MaybeFailure& failure) const {
    const bool debit = IsCurrency(CurrD);
    const bool credit = IsCurrency(CurrC);
    if (!debit && !credit)
        return;
    if (Sign != 0) {
        if (debit)
            addCurrencyRow(brCurrency, guid, Sign, RateD, Sum, CurrD, failure);
        else
            addCurrencyRow(brCurrency, guid, qint16(-Sign), RateC, SumC, CurrC, failure);
        return;
    }
    // Sign 0: one currency stands for both sides of the entry.
    if (debit) {
        addCurrencyRow(brCurrency, guid, 1, RateD, Sum, CurrD, failure);
        addCurrencyRow(brCurrency, guid, -1, RateD, Sum, CurrD, failure);
    } else {
        addCurrencyRow(brCurrency, guid, 1, RateC, SumC, CurrC, failure);
        addCurrencyRow(brCurrency, guid, -1, RateC, SumC, CurrC, failure);
    }
}

void EntrySides::WriteProperties(const RecordsetPtr& brProperties, const QString& guid,
                                 const ValueArray& addressees, const DictionaryPtr& demands,
                                 MaybeFailure& failure) {
    for (int i = 0; i + 2 < addressees.size() && !failure; i += 3) {
        bool ok = false;
        const qint16 sign = addressees.at(i).toInt16(&ok);
        const QString foidr = addressees.at(i + 1).toString();
        const QString showString = addressees.at(i + 2).toString();
        if (!ok || (sign != 1 && sign != -1) || foidr.size() <= 8)
            continue;
        if (demands) {
            const QString key =
                (sign == 1 ? QStringLiteral("D") : QStringLiteral("C")) + foidr.left(8);
            if (!demands->Exists(key))
                continue;
        }
        if (!brProperties) {
            failure = CommandFailure::Missing(QStringLiteral("BRProperties"));
            return;
        }
        brProperties->AddNew();
        WriteField(brProperties, QStringLiteral("BRGUID"), Value(guid), failure);
        WriteField(brProperties, QStringLiteral("Sign"), Value(sign), failure);
        WriteField(brProperties, QStringLiteral("FOIDR"), Value(foidr), failure);
        WriteField(brProperties, QStringLiteral("ShowString"),
                   Value(showString.left(OperationRecord::ShowStringSize)), failure);
        brProperties->Update();
    }
}

EntrySides EntrySides::FromParameters(CommandParameters& p, int first) {
    EntrySides sides;
    sides.Sum = p.Double(first);
    sides.Sign = p.Int16(first + 2);
    sides.CurrD = p.Text(first + 3);
    sides.RateD = p.Double(first + 4);
    sides.SumC = p.Double(first + 5);
    sides.CurrC = p.Text(first + 6);
    sides.RateC = p.Double(first + 7);
    return sides;
}

} // namespace orvo

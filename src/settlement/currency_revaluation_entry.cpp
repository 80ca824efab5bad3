#include "settlement/currency_revaluation_entry.h"

#include "core/null_readers.h"
#include "operations/command_failure.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

bool isCurrency(const QString& code) {
    return code.size() == 3 && code != kNoCurrency;
}

} // namespace

ValueResult AddRateChangeEntry(const OrvoObjectUIOPtr& operation, const RateChangeEntry& entry) {
    if (!operation)
        return CommandFailure::NoOperationRow().ToResult();
    const ValueResult added = operation->Methods(
        QStringLiteral("AddBR"),
        {Value(entry.AccountD), Value(entry.AccountC), Value(entry.Amount), Value(entry.Addressees),
         Value(entry.Sign), Value(kNoCurrency), Value(0.0), Value(0.0), Value(kNoCurrency),
         Value(0.0), Value(entry.Info), Value(QString()), Value(entry.Date)});
    const QString guid = added.ok() ? added.Value.toString() : QString();
    if (guid.isEmpty() || !isCurrency(entry.CurrencyCode))
        return added;

    MaybeFailure failure;
    const RecordsetPtr br = NestedOf(operation->RsFields(), QStringLiteral("BR"), failure);
    if (failure)
        return failure->ToResult();
    br->MoveFirst();
    while (!br->Eof() && NzString(br->Field(QStringLiteral("GUID"))) != guid)
        br->MoveNext();
    if (br->Eof())
        return CommandFailure::BadAnswer(QStringLiteral("BR")).ToResult();
    const RecordsetPtr currencies = NestedOf(br, QStringLiteral("BRCurrency"), failure);
    if (failure)
        return failure->ToResult();
    currencies->AddNew();
    WriteField(currencies, QStringLiteral("BRGUID"), Value(guid), failure);
    WriteField(currencies, QStringLiteral("Sign"), Value(qint16(entry.Sign == 1 ? 1 : -1)),
               failure);
    WriteField(currencies, QStringLiteral("RateCurr"), Value(0.0), failure);
    WriteField(currencies, QStringLiteral("SumCurr"), Value(0.0), failure);
    WriteField(currencies, QStringLiteral("FCurrencyCode"), Value(entry.CurrencyCode), failure);
    currencies->Update();
    if (failure)
        return failure->ToResult();
    return added;
}

} // namespace orvo

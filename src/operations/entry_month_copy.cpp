#include "operations/entry_month_copy.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/recordset.h"
#include "core/rounding.h"
#include "frame/catalogue.h"

#include <QVector>

namespace orvo {

namespace {

struct CurrencySide {
    int Sign = 0;
    QString Code;
    double Rate = 0;
    double Sum = 0;
};

QVector<CurrencySide> currencySides(const RecordsetPtr& currency) {
    QVector<CurrencySide> sides;
    if (!currency)
        return sides;
    for (currency->MoveFirst(); !currency->Eof(); currency->MoveNext()) {
        CurrencySide side;
        side.Sign = NzInt(currency->Field(QStringLiteral("Sign")));
        side.Code = NzString(currency->Field(QStringLiteral("FCurrencyCode")));
        side.Rate = NzDouble(currency->Field(QStringLiteral("RateCurr")));
        side.Sum = NzDouble(currency->Field(QStringLiteral("SumCurr")));
        if (side.Code.trimmed().size() == 3 && side.Rate > 0 && side.Sum > 0)
            sides.append(side);
    }
    return sides;
}

// The amounts of each month: `total` spread over `months` for a period sum (the last
// month takes the rest), or `total` every month.
QVector<double> monthAmounts(double total, int months, bool periodSum) {
    QVector<double> amounts;
    const double each = periodSum ? Round(total / months + 0.00001, 2) : total;
    for (int month = 1; month <= months; ++month)
        amounts.append(
            periodSum && month == months ? Round(total - each * (months - 1) + 0.00001, 2) : each);
    return amounts;
}

} // namespace

bool EntryMonthCopy::Run(const QString& guid, const CopyByMonthsChoice& choice) {
    const RecordsetPtr br = op_ ? op_->Field(QStringLiteral("BR")).toRecordset() : nullptr;
    if (!br || choice.Months <= 0 || guid.isEmpty() ||
        !Catalogue::TryFilter(br, QStringLiteral("GUID = '") + guid + QStringLiteral("'")))
        return false;
    const QDate date = NzDate(br->Field(QStringLiteral("DateD")),
                              NzDate(op_->Field(QStringLiteral("DateD")), QDate()));
    const double entrySum = NzDouble(br->Field(QStringLiteral("SumA")));
    const QString accountD = NzString(br->Field(QStringLiteral("AccountD")));
    const QString accountC = NzString(br->Field(QStringLiteral("AccountC")));
    const QString info = NzString(br->Field(QStringLiteral("Info")));
    ValueArray triples;
    if (const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset())
        for (props->MoveFirst(); !props->Eof(); props->MoveNext())
            triples << Value(NzInt(props->Field(QStringLiteral("Sign"))))
                    << Value(NzString(props->Field(QStringLiteral("FOIDR"))))
                    << Value(NzString(props->Field(QStringLiteral("ShowString"))));
    const RecordsetPtr currency = br->Field(QStringLiteral("BRCurrency")).toRecordset();
    const QVector<CurrencySide> sides = currencySides(currency);

    // What is spread: the base sum, or for a currency entry its currency amount (the
    // entry's own when the sum was left as it stood, else the sum at the entry's rate).
    const CurrencySide* primary = sides.isEmpty() ? nullptr : &sides.first();
    for (const CurrencySide& side : sides)
        if (side.Sign == 1) {
            primary = &side;
            break;
        }
    double total = choice.Sum;
    if (primary)
        total = Round(choice.Sum + 0.00001, 2) == Round(entrySum + 0.00001, 2)
                    ? primary->Sum
                    : Round(choice.Sum / primary->Rate + 0.00001, 2);
    const QVector<double> amounts = monthAmounts(total, choice.Months, choice.PeriodSum);
    const auto baseOf = [primary](double amount) {
        return primary ? Round(amount * primary->Rate + 0.00001, 2) : amount;
    };

    QDate current;
    if (choice.LastDay) {
        current = LastOfMonth(date);
    } else {
        // The entry's year and month with the pointed day; a day the month lacks falls
        // on its last day.
        const QDate first(date.year(), date.month(), 1);
        current = QDate(date.year(), date.month(), qMin(choice.Day, first.daysInMonth()));
    }

    // The first month is the entry itself, its currency rows following its new sum.
    const double firstBase = baseOf(amounts.first());
    br->SetField(QStringLiteral("SumA"), Value(firstBase));
    br->SetField(QStringLiteral("DateD"), Value(current));
    br->Update();
    if (primary && currency)
        for (currency->MoveFirst(); !currency->Eof(); currency->MoveNext()) {
            const QString code = NzString(currency->Field(QStringLiteral("FCurrencyCode")));
            const double rate = NzDouble(currency->Field(QStringLiteral("RateCurr")));
            if (rate <= 0)
                continue;
            currency->SetField(QStringLiteral("SumCurr"),
                               Value(code == primary->Code ? amounts.first()
                                                           : Round(firstBase / rate + 0.00001, 2)));
            currency->Update();
        }
    br->SetFilter(QString());

    // Which sides of the copies are in the currency, as AddBR takes them.
    const bool debit = primary && primary->Sign == 1;
    bool credit = false;
    for (const CurrencySide& side : sides)
        if (side.Sign == -1 && primary && side.Code == primary->Code)
            credit = true;
    const qint16 sign = debit && credit ? 0 : debit ? 1 : credit ? -1 : 0;
    const QString none = QStringLiteral("   ");
    for (int month = 2; month <= choice.Months; ++month) {
        current = AddMonths(current, 1);
        if (choice.LastDay)
            current = LastOfMonth(current);
        const double amount = amounts[month - 1];
        const bool withCurrency = primary != nullptr;
        const ValueArray parameters = {Value(accountD),
                                       Value(accountC),
                                       Value(withCurrency && !debit ? 0.0 : amount),
                                       Value(triples),
                                       Value(sign),
                                       Value(debit ? primary->Code : none),
                                       Value(debit ? primary->Rate : 0.0),
                                       Value(credit ? amount : 0.0),
                                       Value(credit ? primary->Code : none),
                                       Value(credit ? primary->Rate : 0.0),
                                       Value(choice.WithComment ? info : QString()),
                                       Value(QString()),
                                       Value(DateParam(current))};
        if (!op_->Methods(QStringLiteral("AddBR"), parameters).ok())
            return false;
    }
    return true;
}

} // namespace orvo

#include "settlement/debts_cover_list.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "frame/messages.h"
#include "settlement/selection_debts.h"

#include <cmath>

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

double field(const RecordsetPtr& rs, const char* name) {
    return NzDouble(rs->Field(QString::fromLatin1(name)));
}

QString text(const RecordsetPtr& rs, const char* name) {
    return NzString(rs->Field(QString::fromLatin1(name)));
}

// The rate cell: nine places, a blank for no rate.
QString rateCell(double rate) {
    return rate > 0 ? FormatNumberLt(rate, 9, false) : QStringLiteral(" ");
}

} // namespace

double CoverCellValue(double value) {
    return NumberFromText(FormatAmount(value));
}

bool DebtsCoverRow::HasCurrency() const {
    return CurrencyCode.size() == 3 && CurrencyCode != kNoCurrency;
}

QString DebtsCoverRow::DateText() const {
    return DateParam(Date);
}

QString DebtsCoverRow::DocText() const {
    return DateText() + QLatin1Char(' ') + Nr;
}

bool DebtsCoverRow::CodeRed() const {
    return HasCurrency() && LikutisCurr == 0 && (PaymentLt != 0 || LikutisLt != 0);
}

QStringList DebtsCoverList::Keys() {
    return {QStringLiteral("Nr"),
            QStringLiteral("LikutisLt"),
            QStringLiteral("LikutisCurr"),
            QStringLiteral("LikutisCurrCode"),
            QStringLiteral("PaymentLt"),
            QStringLiteral("PaymentSumCurr"),
            QStringLiteral("PaymentCurrCode"),
            QStringLiteral("PaymentCurrRate"),
            QStringLiteral("InfluenceSum")};
}

QStringList DebtsCoverList::Captions(const QString& baseCurrency) {
    return {QStringLiteral("Data"),
            QStringLiteral("Nr"),
            QStringLiteral("Likutis, ") + baseCurrency,
            QStringLiteral("Likutis valiuta"),
            QStringLiteral("Valiuta"),
            QStringLiteral("Apm., ") + baseCurrency,
            QStringLiteral("Apm. valiuta"),
            QStringLiteral("Valiuta"),
            QStringLiteral("Kursas"),
            QStringLiteral("Kurso įtaka")};
}

void DebtsCoverList::Fill(const RecordsetPtr& debts, const DictionaryPtr& rates,
                          const QString& accountRateIncome, const QString& accountRateExpense,
                          bool baseIsEuro) {
    Clear();
    if (!debts || debts->RecordCount() == 0)
        return;
    rs_ = SelectionDebts::Copy(debts);
    SelectionDebts::Revalue(rs_, rates);
    for (rs_->MoveFirst(); !rs_->Eof(); rs_->MoveNext()) {
        const int sign = NzInt(rs_->Field(QStringLiteral("InfluenceSign"))) < 0 ? -1 : 1;
        // The rate-change entries of a debt are no debts to cover.
        if (sign == 1 && text(rs_, "AccountD") == accountRateExpense)
            continue;
        if (sign == -1 && text(rs_, "AccountC") == accountRateIncome)
            continue;
        DebtsCoverRow row;
        row.Key = text(rs_, "OIDR");
        row.Date = NzDate(rs_->Field(QStringLiteral("DateD")), QDate());
        row.Comment = text(rs_, "Comment");
        row.Nr = text(rs_, "Number") + QLatin1Char(' ') + row.Comment;
        row.InfluenceSign = sign;
        row.CurrencyCode = text(rs_, "FCurrencyCode");
        if (row.CurrencyCode.size() != 3)
            row.CurrencyCode = kNoCurrency;
        row.LikutisCurr = CoverCellValue(field(rs_, "LikutisCurr"));
        row.InfluenceSum = CoverCellValue(field(rs_, "CurrInfluence"));
        row.LikutisLt = CoverCellValue(field(rs_, "LikutisLt") - row.InfluenceSum * sign);
        row.Rate = field(rs_, "CurrentRate");
        row.RateShown = baseIsEuro ? field(rs_, "CurrencyRate") : row.Rate;
        if (row.Rate <= 0) {
            row.Rate = 0;
            row.RateShown = 0;
        }
        rows_.append(row);
    }
    rs_->MoveFirst();
}

void DebtsCoverList::Clear() {
    rs_.reset();
    rows_.clear();
}

int DebtsCoverList::CheckedCount() const {
    int n = 0;
    for (const DebtsCoverRow& r : rows_)
        n += r.Checked ? 1 : 0;
    return n;
}

QStringList DebtsCoverList::Cells(const DebtsCoverRow& row) {
    const bool currencyLeft = row.HasCurrency() && CoverCellValue(row.LikutisCurr) != 0;
    const bool currencyPaid = row.HasCurrency() && CoverCellValue(row.PaymentSumCurr) != 0;
    return {row.Nr,
            FormatAmount(row.LikutisLt),
            FormatAmount(row.LikutisCurr),
            currencyLeft || row.CodeRed() ? row.CurrencyCode : QString(),
            FormatAmount(row.PaymentLt),
            FormatAmount(row.PaymentSumCurr),
            currencyPaid ? row.CurrencyCode : QString(),
            rateCell(row.RateShown),
            FormatAmount(row.InfluenceSum)};
}

QString DebtsCoverList::Fault(const DebtsCoverRow& row) {
    if (row.LikutisCurr + row.PaymentSumCurr < 0)
        return QStringLiteral("Klaidingas likutis !");
    if (row.HasCurrency() && row.Rate <= 0)
        return QStringLiteral("Nenurodytas ") + row.CurrencyCode + QStringLiteral(" kursas!");
    return QString();
}

QString DebtsCoverList::FaultText(const DebtsCoverRow& row, const QString& fault) {
    return row.DateText() + QLatin1Char(' ') + row.Nr + QLatin1Char('\n') + fault;
}

bool DebtsCoverList::Check(int i, const DictionaryPtr& reported) {
    if (i < 0 || i >= rows_.size())
        return false;
    DebtsCoverRow& row = rows_[i];
    const QString fault = Fault(row);
    if (!fault.isEmpty()) {
        const bool rateMissing = row.HasCurrency() && row.Rate <= 0;
        if (!(rateMissing && reported && reported->Exists(row.CurrencyCode)))
            ShowWarning(FaultText(row, fault));
        if (rateMissing && reported && !reported->Exists(row.CurrencyCode))
            reported->Add(row.CurrencyCode, Value(true));
        row.Checked = false;
        return false;
    }
    // What is open before this payment: the balance and what the row pays now.
    const double fullBase = CoverCellValue(row.LikutisLt + row.PaymentLt);
    const double fullCurr = CoverCellValue(row.LikutisCurr + row.PaymentSumCurr);
    double payBase = 0;
    double payCurr = 0;
    if (row.HasCurrency() && fullCurr != 0) {
        const double balance = Round(row.Rate * fullCurr + BaseSumAddend, 2);
        if (balance > 0) {
            payCurr = fullCurr;
            payBase = Round(payCurr * row.Rate + BaseSumAddend, 2);
        }
    } else if (fullBase > 0) {
        payBase = fullBase;
    }
    if (payBase <= 0) {
        Uncheck(i);
        return false;
    }
    row.PaymentLt = payBase;
    row.PaymentSumCurr = payCurr;
    row.LikutisCurr = CoverCellValue(fullCurr - payCurr);
    row.LikutisLt = row.HasCurrency() && fullCurr != 0
                        ? CoverCellValue(Round(row.Rate * fullCurr + BaseSumAddend, 2) - payBase)
                        : CoverCellValue(fullBase - payBase);
    row.Checked = true;
    return true;
}

void DebtsCoverList::Uncheck(int i) {
    if (i < 0 || i >= rows_.size())
        return;
    DebtsCoverRow& row = rows_[i];
    row.LikutisLt = CoverCellValue(row.LikutisLt + row.PaymentLt);
    row.PaymentLt = 0;
    if (row.PaymentSumCurr != 0) {
        row.LikutisCurr =
            row.HasCurrency() ? CoverCellValue(row.LikutisCurr + row.PaymentSumCurr) : 0;
        row.PaymentSumCurr = 0;
    }
    row.Checked = false;
}

void DebtsCoverList::CheckAll() {
    const DictionaryPtr reported = Dictionary::Create();
    for (int i = 0; i < rows_.size(); ++i)
        if (!rows_[i].Checked)
            Check(i, reported);
}

void DebtsCoverList::DropAll() {
    for (int i = 0; i < rows_.size(); ++i)
        Uncheck(i);
}

double DebtsCoverList::CurrencyOf(const DebtsCoverRow& row, double base) {
    if (!row.HasCurrency() || row.Rate <= 0)
        return 0;
    const double fullBase = CoverCellValue(row.LikutisLt + row.PaymentLt);
    const double fullCurr = CoverCellValue(row.LikutisCurr + row.PaymentSumCurr);
    // The whole balance pays the whole currency, without a cent lost to rounding.
    if (CoverCellValue(base) == fullBase)
        return fullCurr;
    return Round(base / row.Rate + BaseSumAddend, 2);
}

void DebtsCoverList::EnterSum(int i, double newBase, double newCurr) {
    if (i < 0 || i >= rows_.size())
        return;
    DebtsCoverRow& row = rows_[i];
    row.LikutisLt = CoverCellValue(row.LikutisLt + row.PaymentLt - newBase);
    row.PaymentLt = CoverCellValue(newBase);
    if (row.HasCurrency()) {
        row.LikutisCurr = CoverCellValue(row.LikutisCurr + row.PaymentSumCurr - newCurr);
        row.PaymentSumCurr = CoverCellValue(newCurr);
    }
    row.Checked = row.PaymentLt != 0;
}

double DebtsCoverList::PaymentSum() const {
    double sum = 0;
    for (const DebtsCoverRow& r : rows_)
        sum += CoverCellValue(r.PaymentLt);
    return Round(sum, 2);
}

int DebtsCoverList::IndexOf(const QString& key) const {
    for (int i = 0; i < rows_.size(); ++i)
        if (rows_[i].Key == key)
            return i;
    return -1;
}

} // namespace orvo

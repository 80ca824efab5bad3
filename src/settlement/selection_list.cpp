#include "settlement/selection_list.h"

#include "core/null_readers.h"
#include "core/rounding.h"
#include "frame/messages.h"
#include "settlement/selection_allocation.h"
#include "settlement/selection_debts.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

double number(const RecordsetPtr& rs, const char* field) {
    return NzDouble(rs->Field(QString::fromLatin1(field)));
}

QString text(const RecordsetPtr& rs, const char* field) {
    return NzString(rs->Field(QString::fromLatin1(field)));
}

bool blankCode(const QString& code) {
    return code.trimmed().isEmpty();
}

} // namespace

void SelectionList::SetRoleAccounts(const QString& acc536, const QString& acc636) {
    acc536_ = acc536;
    acc636_ = acc636;
}

bool SelectionList::HasCoverCell() const {
    return !blankCode(payment_.Code) && payment_.Code != baseCurrency_;
}

void SelectionList::Clear() {
    rows_.clear();
    debts_.reset();
}

bool SelectionList::isRateChangeEntry() const {
    const int sign = NzInt(debts_->Field(QStringLiteral("InfluenceSign")));
    if (sign == 1 && !acc636_.isEmpty() && text(debts_, "AccountD") == acc636_)
        return true;
    if (sign == -1 && !acc536_.isEmpty() && text(debts_, "AccountC") == acc536_)
        return true;
    return false;
}

SelectionRow SelectionList::rowFromDebt() const {
    SelectionRow row;
    row.HasCoverCell = HasCoverCell();
    row.Text = NzDate(debts_->Field(QStringLiteral("DateD")), QDate())
                   .toString(QStringLiteral("yyyy.MM.dd"));
    row.Key = text(debts_, "OIDR");
    for (int c = 1; c <= SelectionRow::CellCount; ++c)
        row.Blank(c);
    row.At(SelectionRow::Nr).Text =
        text(debts_, "Number") + QLatin1Char(' ') + text(debts_, "Comment");
    row.At(SelectionRow::Nr).Tag = Value(text(debts_, "Comment"));
    const int sign = NzInt(debts_->Field(QStringLiteral("InfluenceSign")));
    const double influence = number(debts_, "CurrInfluence");
    row.SetAmount(SelectionRow::LikutisLt, number(debts_, "LikutisLt") - influence * sign);
    const double currency = number(debts_, "LikutisCurr");
    row.SetAmount(SelectionRow::LikutisCurr, currency);
    row.At(SelectionRow::LikutisCurr).Tag = Value(currency);
    QString code = text(debts_, "FCurrencyCode");
    if (blankCode(code))
        code = kNoCurrency;
    row.At(SelectionRow::LikutisCurrCode).Tag = Value(code);
    if (!blankCode(code) && currency != 0)
        row.At(SelectionRow::LikutisCurrCode).Text = code;
    const double current = number(debts_, "CurrentRate");
    row.SetRate(current, baseIsEuro_ ? number(debts_, "CurrencyRate") : current);
    row.At(SelectionRow::InfluenceSum).Tag = Value(influence);
    return row;
}

void SelectionList::writeAllocation(SelectionRow& row, const AllocationResult& a) const {
    row.SetAmount(SelectionRow::LikutisLt, a.BaseBalance);
    if (row.HasCurrency()) {
        row.SetAmount(SelectionRow::LikutisCurr, a.CurrencyBalance);
        if (row.IsBlank(SelectionRow::LikutisCurr))
            row.Blank(SelectionRow::LikutisCurrCode);
        else
            row.At(SelectionRow::LikutisCurrCode).Text = row.CurrencyCode();
    }
    row.SetAmount(SelectionRow::PaymentLt, a.PaymentLt);
    row.SetAmount(SelectionRow::PaymentSumCurr, a.PaymentSumCurr);
    if (row.IsBlank(SelectionRow::PaymentSumCurr))
        row.Blank(SelectionRow::PaymentCurrCode);
    else
        row.At(SelectionRow::PaymentCurrCode).Text = row.CurrencyCode();
    if (row.HasCoverCell) {
        row.SetAmount(SelectionRow::CoverSumCurr, a.CoverSumCurr);
        row.At(SelectionRow::CoverSumCurr).Color = SelectionRow::Blue;
    }
}

void SelectionList::Fill(const RecordsetPtr& debts) {
    rows_.clear();
    debts_ = debts;
    if (!debts_ || debts_->RecordCount() == 0)
        return;
    double remaining = payment_.Sum;
    for (debts_->MoveFirst(); !debts_->Eof(); debts_->MoveNext()) {
        if (isRateChangeEntry())
            continue;
        SelectionRow row = rowFromDebt();
        const int sign = NzInt(debts_->Field(QStringLiteral("InfluenceSign")));
        AllocationResult a;
        if (remaining > 0) {
            AllocationInput in;
            in.BaseBalance = row.Amount(SelectionRow::LikutisLt);
            in.CurrencyBalance = number(debts_, "LikutisCurr");
            in.RowCode = row.CurrencyCode();
            in.RowRate = row.Rate();
            in.PayCode = payment_.Code;
            in.PayRate = payment_.Rate;
            in.RemainingBase = remaining;
            in.RemainingCurrency = payment_.SumCurr;
            a = SelectionAllocation::Allocate(in);
            remaining = Round(remaining - a.Result, 2);
            if (a.Result > 0)
                writeAllocation(row, a);
            row.AllocationInfluence = a.InfluenceSum;
        }
        const bool paid = a.Result > 0 && (a.PaymentLt > 0 || a.PaymentSumCurr > 0);
        if (row.HasCurrency() && number(debts_, "LikutisCurr") == 0 &&
            (paid || !row.IsBlank(SelectionRow::LikutisLt)))
            row.At(SelectionRow::LikutisCurrCode).Color = SelectionRow::Red;
        const double influence = number(debts_, "CurrInfluence");
        row.SetAmount(SelectionRow::InfluenceSum, a.InfluenceSum * sign + influence);
        row.At(SelectionRow::InfluenceSum).Tag = Value(influence);
        row.Checked = paid;
        rows_.append(row);
    }
    debts_->MoveFirst();
}

bool SelectionList::GoToDebt(int index) const {
    if (!debts_ || index < 0 || index >= rows_.size())
        return false;
    const QString key = rows_.at(index).Key;
    for (debts_->MoveFirst(); !debts_->Eof(); debts_->MoveNext())
        if (text(debts_, "OIDR") == key)
            return true;
    return false;
}

QString SelectionList::RowMessage(const SelectionRow& row, const QString& message) {
    return row.Text + QLatin1Char(' ') + row.At(SelectionRow::Nr).Text + QLatin1Char('\n') +
           message;
}

bool SelectionList::Validate(int index, const DictionaryPtr& reported) const {
    const SelectionRow& row = rows_.at(index);
    if (row.Amount(SelectionRow::LikutisCurr) < 0) {
        ShowWarning(RowMessage(row, QStringLiteral("Klaidingas likutis !")));
        return false;
    }
    if (row.HasCurrency() && row.Rate() == 0) {
        const QString code = row.CurrencyCode();
        if (!reported || !reported->Exists(code))
            ShowWarning(RowMessage(row, QStringLiteral("Nenurodytas ") + code +
                                            QStringLiteral(" kursas!")));
        if (reported && !reported->Exists(code))
            reported->Add(code, Value(true));
        return false;
    }
    return true;
}

double SelectionList::remainingExcept(int index) const {
    if (payment_.Sum <= 0)
        return 0;
    const bool foreign = !blankCode(payment_.Code);
    double used = 0;
    for (int i = 0; i < rows_.size(); ++i) {
        if (i == index || !rows_.at(i).Checked)
            continue;
        const SelectionRow& r = rows_.at(i);
        used += foreign && r.HasCoverCell ? r.Amount(SelectionRow::CoverSumCurr)
                                          : r.Amount(SelectionRow::PaymentLt);
    }
    return Round(payment_.Sum - used, 2);
}

double SelectionList::Remaining() const {
    return remainingExcept(-1);
}

bool SelectionList::Check(int index, const DictionaryPtr& reported) {
    if (index < 0 || index >= rows_.size())
        return false;
    SelectionRow& row = rows_[index];
    if (!Validate(index, reported) || row.IsBlank(SelectionRow::LikutisLt)) {
        row.Checked = false;
        return false;
    }
    const double remaining = remainingExcept(index);
    if (payment_.Sum > 0 && remaining <= 0) {
        // The payment is spent on the other rows.
        row.Checked = false;
        return false;
    }
    AllocationInput in;
    in.BaseBalance = row.Amount(SelectionRow::LikutisLt) +
                     row.TagAmount(SelectionRow::InfluenceSum) +
                     row.Amount(SelectionRow::PaymentLt);
    in.CurrencyBalance =
        row.Amount(SelectionRow::LikutisCurr) + row.Amount(SelectionRow::PaymentSumCurr);
    in.RowCode = row.CurrencyCode();
    in.RowRate = row.Rate();
    in.PayCode = payment_.Code;
    in.PayRate = payment_.Rate;
    in.RemainingBase = remaining;
    in.RemainingCurrency = payment_.SumCurr;
    const AllocationResult a = SelectionAllocation::Allocate(in);
    if (a.MissingRate && in.RemainingBase == 0)
        ShowWarning(QStringLiteral("Nenurodytas ") + in.RowCode + QStringLiteral(" kursas !"));
    if (a.Result == 0) {
        row.Checked = false;
        return false;
    }
    const double oldText = row.Amount(SelectionRow::InfluenceSum);
    const double oldTag = row.TagAmount(SelectionRow::InfluenceSum);
    writeAllocation(row, a);
    if (!row.HasCurrency()) {
        row.Blank(SelectionRow::LikutisCurr);
        row.Blank(SelectionRow::LikutisCurrCode);
    }
    // The part typed by hand stays in the text; the tag is the allocation's alone.
    row.SetAmount(SelectionRow::InfluenceSum, a.InfluenceSum + oldText - oldTag);
    row.At(SelectionRow::InfluenceSum).Tag = Value(a.InfluenceSum);
    row.AllocationInfluence = a.InfluenceSum;
    row.Checked = true;
    return true;
}

void SelectionList::Uncheck(int index) {
    if (index < 0 || index >= rows_.size())
        return;
    SelectionRow& row = rows_[index];
    row.SetAmount(SelectionRow::LikutisLt, row.Amount(SelectionRow::LikutisLt) +
                                               row.Amount(SelectionRow::PaymentLt) +
                                               row.TagAmount(SelectionRow::InfluenceSum));
    row.Blank(SelectionRow::PaymentLt);
    if (!row.IsBlank(SelectionRow::PaymentSumCurr)) {
        if (row.HasCurrency()) {
            row.SetAmount(SelectionRow::LikutisCurr, row.Amount(SelectionRow::LikutisCurr) +
                                                         row.Amount(SelectionRow::PaymentSumCurr));
            row.At(SelectionRow::LikutisCurrCode).Text = row.CurrencyCode();
        } else {
            row.Blank(SelectionRow::LikutisCurr);
            row.Blank(SelectionRow::LikutisCurrCode);
        }
        row.Blank(SelectionRow::PaymentSumCurr);
        row.Blank(SelectionRow::PaymentCurrCode);
    }
    row.SetAmount(SelectionRow::InfluenceSum, row.Amount(SelectionRow::InfluenceSum) -
                                                  row.TagAmount(SelectionRow::InfluenceSum));
    row.At(SelectionRow::InfluenceSum).Tag = Value(0.0);
    row.AllocationInfluence = 0;
    row.Blank(SelectionRow::CoverSumCurr);
    row.Checked = false;
}

SumEntryInput SelectionList::SumEntry(int index) const {
    SumEntryInput in;
    const SelectionRow& row = rows_.at(index);
    in.Code = row.HasCurrency() ? row.CurrencyCode() : kNoCurrency;
    in.RowRate = row.Rate();
    in.PaymentRate = row.HasCurrency() ? row.Rate() : payment_.Rate;
    in.BaseBalance =
        row.Amount(SelectionRow::LikutisLt) + row.TagAmount(SelectionRow::InfluenceSum);
    in.CurrencyBalance = row.Amount(SelectionRow::LikutisCurr);
    in.OldPayment = row.Amount(SelectionRow::PaymentLt);
    in.OldPaymentCurr = row.Amount(SelectionRow::PaymentSumCurr);
    if (GoToDebt(index))
        in.BookRate = number(debts_, "CurrencyRate");
    return in;
}

void SelectionList::EnterSum(int index, double newBase, double newCurr) {
    if (index < 0 || index >= rows_.size())
        return;
    SelectionRow& row = rows_[index];
    const bool currencyRow = row.HasCurrency();
    const double oldPayment = row.Amount(SelectionRow::PaymentLt);
    const double oldPaymentCurr = row.Amount(SelectionRow::PaymentSumCurr);
    const double oldManual =
        row.Amount(SelectionRow::InfluenceSum) - row.TagAmount(SelectionRow::InfluenceSum);
    const double fullBase =
        row.Amount(SelectionRow::LikutisLt) + row.TagAmount(SelectionRow::InfluenceSum);
    double manual = 0;
    const double rate = currencyRow ? row.Rate() : payment_.Rate;
    if (row.HasCoverCell && rate > 0 && payment_.Rate > 0) {
        if (currencyRow) {
            // The cover follows the payment only when the base sum was changed.
            if (Round(rate * oldPaymentCurr, 2) != newBase)
                row.SetAmount(SelectionRow::CoverSumCurr, Round(rate * newCurr / payment_.Rate, 2));
        } else {
            double cover = RoundBaseSum(newBase / payment_.Rate);
            double back = RoundBaseSum(cover * payment_.Rate);
            if (back != 0 && back > newBase) {
                cover = Round(cover - 0.01, 2);
                back = RoundBaseSum(cover * payment_.Rate);
            }
            manual = Round(newBase - back, 2);
            if (side_ == 1)
                manual = -manual;
            newBase = back;
            row.SetAmount(SelectionRow::CoverSumCurr, cover);
        }
        row.At(SelectionRow::CoverSumCurr).Color = SelectionRow::Blue;
    }
    row.SetAmount(SelectionRow::LikutisLt, fullBase + oldPayment - newBase);
    row.SetAmount(SelectionRow::PaymentLt, newBase);
    if (currencyRow) {
        row.SetAmount(SelectionRow::LikutisCurr,
                      row.Amount(SelectionRow::LikutisCurr) + oldPaymentCurr - newCurr);
        if (row.Amount(SelectionRow::LikutisCurr) != 0)
            row.At(SelectionRow::LikutisCurrCode).Text = row.CurrencyCode();
        else
            row.Blank(SelectionRow::LikutisCurrCode);
        row.SetAmount(SelectionRow::PaymentSumCurr, newCurr);
        if (row.IsBlank(SelectionRow::PaymentSumCurr))
            row.Blank(SelectionRow::PaymentCurrCode);
        else
            row.At(SelectionRow::PaymentCurrCode).Text = row.CurrencyCode();
    }
    row.Checked = newBase != 0 || (currencyRow && newCurr != 0);
    row.At(SelectionRow::InfluenceSum).Tag = Value(0.0);
    row.SetAmount(SelectionRow::InfluenceSum, oldManual + manual);
    row.AllocationInfluence = 0;
    row.ManualInfluence = side_ == 1 ? -(oldManual + manual) : oldManual + manual;
}

void SelectionList::ChangeRate(int index, double rate) {
    if (!GoToDebt(index))
        return;
    SelectionDebts::RevalueRow(debts_, rate);
    SelectionRow& row = rows_[index];
    const int sign = NzInt(debts_->Field(QStringLiteral("InfluenceSign")));
    const double influence = number(debts_, "CurrInfluence");
    const double current = number(debts_, "CurrentRate");
    row.SetRate(current, baseIsEuro_ ? number(debts_, "CurrencyRate") : current);
    if (!row.Checked) {
        row.SetAmount(SelectionRow::LikutisLt, number(debts_, "LikutisLt") - influence * sign);
        row.SetAmount(SelectionRow::InfluenceSum, row.AllocationInfluence * sign + influence);
        row.At(SelectionRow::InfluenceSum).Tag = Value(influence);
    }
}

double SelectionList::total(bool checkedOnly, bool inPaymentCurrency, int cell) const {
    double sum = 0;
    for (const SelectionRow& r : rows_) {
        if (checkedOnly && !r.Checked)
            continue;
        sum += inPaymentCurrency && r.HasCoverCell ? r.Amount(SelectionRow::CoverSumCurr)
                                                   : r.Amount(cell);
    }
    return Round(sum, 2);
}

double SelectionList::TotalBalance() const {
    return total(false, false, SelectionRow::LikutisLt);
}

double SelectionList::TotalPayment() const {
    return total(true, false, SelectionRow::PaymentLt);
}

double SelectionList::TotalPaymentCurr() const {
    return total(true, true, SelectionRow::PaymentSumCurr);
}

} // namespace orvo

#include "settlement/selection_row.h"

#include "core/null_readers.h"
#include "core/number_text.h"

namespace orvo {

QString SelectionRow::CellKey(int cell) {
    static const char* const keys[] = {"",
                                       "Nr",
                                       "LikutisLt",
                                       "LikutisCurr",
                                       "LikutisCurrCode",
                                       "PaymentLt",
                                       "PaymentSumCurr",
                                       "PaymentCurrCode",
                                       "PaymentCurrRate",
                                       "InfluenceSum",
                                       "CoverSumCurr"};
    return cell >= 0 && cell <= CellCount ? QString::fromLatin1(keys[cell]) : QString();
}

double SelectionRow::Amount(int cell) const {
    const QString text = cells_[cell].Text.trimmed();
    return text.isEmpty() ? 0.0 : NumberFromText(text);
}

double SelectionRow::TagAmount(int cell) const {
    return NzDouble(cells_[cell].Tag);
}

void SelectionRow::SetAmount(int cell, double value) {
    cells_[cell].Text = FormatAmount(value);
}

bool SelectionRow::IsBlank(int cell) const {
    return cells_[cell].Text.trimmed().isEmpty();
}

QString SelectionRow::CurrencyCode() const {
    const QString code = NzString(cells_[LikutisCurrCode].Tag);
    return code.isEmpty() ? QStringLiteral("   ") : code;
}

bool SelectionRow::HasCurrency() const {
    return !CurrencyCode().trimmed().isEmpty();
}

void SelectionRow::SetRate(double rate, double shownRate) {
    if (shownRate <= 0 || rate <= 0) {
        cells_[PaymentCurrRate].Text = QStringLiteral(" ");
        cells_[PaymentCurrRate].Tag = Value(0.0);
        return;
    }
    cells_[PaymentCurrRate].Text = FormatNumberLt(shownRate, 9, false);
    cells_[PaymentCurrRate].Tag = Value(rate);
}

} // namespace orvo

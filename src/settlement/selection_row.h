// SelectionRow is one line of a settling window's list of debts, held without widgets:
// the item's text (the debt's date) and key (the debt's OIDR), its check mark, and the
// ten sub-items, each with a text, a tag and a colour. The settling rules read and
// write the cells the way the list shows them: a sum is written in the two-place cell
// format, where anything strictly between -0.01 and 0.01 is one blank, and a blank
// reads back as 0. The widgets only mirror these rows.
#pragma once

#include "core/value.h"

#include <QString>
#include <array>

namespace orvo {

struct SelectionCell {
    QString Text;
    Value Tag;
    // The colour value of the text: 0 black, 255 red, blue for the cover in the payment
    // currency.
    int Color = 0;
};

class SelectionRow {
public:
    // The sub-items by number.
    enum Cell {
        Nr = 1,
        LikutisLt = 2,
        LikutisCurr = 3,
        LikutisCurrCode = 4,
        PaymentLt = 5,
        PaymentSumCurr = 6,
        PaymentCurrCode = 7,
        PaymentCurrRate = 8,
        InfluenceSum = 9,
        CoverSumCurr = 10,
    };
    static constexpr int CellCount = 10;
    static constexpr int Red = 255;
    static constexpr int Blue = 0xFF0000;

    // The keys of the sub-items, by number (index 0 is the item's own text).
    static QString CellKey(int cell);

    QString Text;
    QString Key;
    bool Checked = false;
    // Whether the list has cell 10: only when the payment is in a currency other than
    // the base.
    bool HasCoverCell = false;
    // The parts of the row's rate-change influence that the cells show only mixed: the
    // rounding influence of the allocation and the part typed in the sum dialog, both
    // as base balance left over by the payment.
    double AllocationInfluence = 0;
    double ManualInfluence = 0;

    SelectionCell& At(int cell) { return cells_[cell]; }
    const SelectionCell& At(int cell) const { return cells_[cell]; }

    // The cell's text read as a number; a blank is 0.
    double Amount(int cell) const;
    // The cell's tag as a number; Null is 0.
    double TagAmount(int cell) const;
    // Writes a sum in the cell format.
    void SetAmount(int cell, double value);
    bool IsBlank(int cell) const;
    void Blank(int cell) { cells_[cell].Text = QStringLiteral(" "); }

    // The currency of the row (the tag of cell 4), three blanks for the base.
    QString CurrencyCode() const;
    // Whether the row has a currency: its code isn't blank.
    bool HasCurrency() const;
    // The row's rate: the tag of cell 8.
    double Rate() const { return TagAmount(PaymentCurrRate); }
    // Writes the rate: the shown rate in nine decimals and `rate` as the tag; a shown
    // rate of 0 or less is one blank and the tag is 0.
    void SetRate(double rate, double shownRate);

private:
    std::array<SelectionCell, CellCount + 1> cells_;
};

} // namespace orvo

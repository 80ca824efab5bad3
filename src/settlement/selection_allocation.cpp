#include "settlement/selection_allocation.h"

#include "core/rounding.h"

#include <algorithm>

namespace orvo {

AllocationResult SelectionAllocation::Allocate(const AllocationInput& in) {
    AllocationResult out;
    double base = in.BaseBalance;
    double curr = in.CurrencyBalance;
    out.BaseBalance = base;
    out.CurrencyBalance = curr;
    const bool payInBase = IsBase(in.PayCode);
    // A row with no currency balance left is settled as a base row.
    const bool currencyRow = !IsBase(in.RowCode) && curr != 0;

    // The row's balance in the payment's currency.
    double balanceInPay = base;
    if (!currencyRow) {
        if (!payInBase && in.PayRate > 0)
            balanceInPay = Round(base / in.PayRate, 2);
    } else {
        if (in.RowRate == 0) {
            out.MissingRate = true;
            return out;
        }
        base = RoundBaseSum(in.RowRate * curr);
        out.BaseBalance = base;
        if (payInBase)
            // A base payment takes the row in its own currency, as PaymentSumCurr.
            balanceInPay = curr;
        else if (in.PayCode != in.RowCode)
            balanceInPay = in.PayRate > 0 ? Round(base / in.PayRate, 2) : 0.0;
        else
            balanceInPay = curr;
    }

    if (!payInBase) {
        const double remaining = in.RemainingBase == 0 ? balanceInPay : in.RemainingBase;
        if (remaining <= 0 || balanceInPay <= 0)
            return out;
        if (remaining < balanceInPay) {
            out.CoverSumCurr = remaining;
            if (in.RowRate > 0)
                out.PaymentSumCurr = in.PayCode == in.RowCode
                                         ? remaining
                                         : Round(remaining * in.PayRate / in.RowRate, 2);
        } else {
            out.CoverSumCurr = balanceInPay;
            out.PaymentSumCurr = curr;
        }
        const auto paymentLt = [&] {
            return out.PaymentSumCurr <= 0 ? RoundBaseSum(out.CoverSumCurr * in.PayRate)
                                           : RoundBaseSum(in.RowRate * out.PaymentSumCurr);
        };
        out.PaymentLt = paymentLt();
        if (!currencyRow) {
            // The converted cover may not take more than the balance.
            if (base < out.PaymentLt) {
                out.CoverSumCurr = Round(out.CoverSumCurr - 0.01, 2);
                out.PaymentLt = paymentLt();
            }
            if (remaining >= balanceInPay)
                out.InfluenceSum = Round(base - out.PaymentLt, 2);
        }
        out.Result = out.CoverSumCurr;
    } else {
        const double remaining = in.RemainingBase == 0 ? base : in.RemainingBase;
        if (remaining <= 0 || base <= 0)
            return out;
        out.PaymentLt = std::min(remaining, base);
        if (currencyRow) {
            if (in.RowRate <= 0) {
                out.PaymentLt = 0;
                return out;
            }
            if (in.RemainingCurrency == 0)
                out.PaymentSumCurr = balanceInPay;
            else if (Round(balanceInPay * in.RowRate, 2) != out.PaymentLt)
                out.PaymentSumCurr = Round(out.PaymentLt / in.RowRate, 2);
            else
                out.PaymentSumCurr = in.RemainingCurrency;
            out.CoverSumCurr = out.PaymentSumCurr;
            out.PaymentLt = RoundBaseSum(out.PaymentSumCurr * in.RowRate);
        }
        out.Result = out.PaymentLt;
    }

    if (out.Result > 0) {
        if (currencyRow && out.PaymentSumCurr > 0)
            out.CurrencyBalance = curr - out.PaymentSumCurr;
        out.BaseBalance = Round(base - (out.InfluenceSum + out.PaymentLt), 2);
    }
    return out;
}

} // namespace orvo

// What BROperSelect and Debts need of the selection window frmBROperSelect: the
// one-row SelectParameters recordset that opens it on an account, side and addressee,
// and after it closes whether it was cancelled and its result: one row per chosen
// debt (OIDR, FOIDR, Comment, DateD, Number, AccountD, AccountC, PaymentSum,
// PaymentSumCurr, DebtSumCurr, DebtCurrRate, DebtCurrCode, DebtSign, ExtSum, AddrOIDR,
// AddrName, Acc536, Acc636 ...), standing on the row the user left current.
#pragma once

#include "core/recordset.h"
#include "frame/orvo_form.h"

namespace orvo {

class SelectionForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmBROperSelect"); }

    virtual void SetSelectParameters(const RecordsetPtr& parameters) = 0;

    virtual bool Cancelled() const = 0;
    // Null when cancelled.
    virtual RecordsetPtr Result() const = 0;
};

} // namespace orvo

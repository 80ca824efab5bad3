// SelectionDebts reads the open debts that the settling windows work on and lays the
// rate of the working date over them. The debts come from one of the operation object's
// debt queries (Debts1, Debts2, Debts3, DebtsByDebit, DebtsByCredit, chosen by the
// addressee reference and a side flag), and are copied into a disconnected recordset so
// that the window may write CurrentRate, CurrInfluence and RateCurr into its rows.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QString>

namespace orvo {

// Whose debts are read.
struct DebtsRequest {
    QString Account;
    QDate Date;
    // The addressee: shorter than 8 characters any, 8 a whole kind, longer one.
    QString Addressee;
    // 1 debit debts, -1 credit debts, 0 both; it is also the side flag that picks the
    // query for a full addressee reference.
    int Sign = 0;
    // Picks DebtsByDebit (1) or DebtsByCredit (-1) in place of Debts1 and Debts2; 0
    // leaves the choice to the reference.
    int QueryFlag = 0;
    // A firm together with its branches.
    bool WithBranches = false;
};

class SelectionDebts {
public:
    // The parameter text of the queries: '0','<account>','<yyyy.mm.dd>','<addressee>',<sign>
    // and ",1" when the branches are asked for.
    static QString ParameterText(const DebtsRequest& request);

    // The query's answer copied into a disconnected recordset, or the query's refusal.
    static ValueResult Read(const OrvoObjectUIOPtr& caller, const DebtsRequest& request);

    // A disconnected copy that keeps every field's name, type, size and attributes (a
    // numeric field becomes a decimal of 9 bytes with the same scale), its rows in order,
    // standing on the first.
    static RecordsetPtr Copy(const RecordsetPtr& rs);

    // Lays `rates` (currency code to the rate of the working date) over every row; the
    // current row is kept.
    static void Revalue(const RecordsetPtr& rs, const DictionaryPtr& rates);
    // The same for the current row with the rate given (0: none).
    static void RevalueRow(const RecordsetPtr& rs, double rate);

    // The influence of a rate change on a balance: round((base − round(rate × currency
    // + 0.00001, 2)) × sign, 2); 0 without a currency balance or a rate.
    static double Influence(double baseBalance, double currencyBalance, double rate,
                            int influenceSign);
};

} // namespace orvo

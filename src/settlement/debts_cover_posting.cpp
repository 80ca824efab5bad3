#include "settlement/debts_cover_posting.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/rounding.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

QString quoted(const QString& s) {
    return QLatin1Char('\'') + s + QLatin1Char('\'');
}

bool isCurrency(const QString& code) {
    return code.size() == 3 && code != kNoCurrency;
}

} // namespace

DebtsCoverPosting::DebtsCoverPosting(OrvoObjectUIOPtr operation, bool primaryDebit,
                                     QString accountRateIncome, QString accountRateExpense)
    : op_(std::move(operation)), primaryDebit_(primaryDebit),
      accountRateIncome_(std::move(accountRateIncome)),
      accountRateExpense_(std::move(accountRateExpense)) {}

void DebtsCoverPosting::SetDates(const QDate& coverDate, bool byCoveredDates) {
    coverDate_ = coverDate;
    byCoveredDates_ = byCoveredDates;
}

QString DebtsCoverPosting::DebitAccount(const DebtsCoverSide& primary,
                                        const DebtsCoverSide& secondary) const {
    return PrimarySign() == 1 ? primary.Account : secondary.Account;
}

QString DebtsCoverPosting::CreditAccount(const DebtsCoverSide& primary,
                                         const DebtsCoverSide& secondary) const {
    return PrimarySign() == 1 ? secondary.Account : primary.Account;
}

ValueArray DebtsCoverPosting::Addressees(const DebtsCoverSide& side, const DebtsCoverRow& row,
                                         int sign) {
    ValueArray triples;
    if (row.Key.size() < 9)
        return triples;
    triples << Value(qint16(sign)) << Value(row.Key) << Value(row.DocText());
    const ValueResult props =
        op_->Properties(QStringLiteral("BRPropertiesByAcc"),
                        quoted(side.Account) + QLatin1Char(',') + quoted(side.Addressee) +
                            QLatin1Char(',') + QString::number(-sign));
    const RecordsetPtr rs = props.ok() ? props.Value.toRecordset() : nullptr;
    if (!rs)
        return triples;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const QString foidr = NzString(rs->Field(QStringLiteral("FOIDR")));
        bool present = false;
        for (int i = 1; i < triples.size() && !present; i += 3)
            present = triples.at(i).toString().left(8) == foidr.left(8);
        if (present)
            continue;
        triples << Value(qint16(-sign)) << Value(foidr)
                << Value(NzString(rs->Field(QStringLiteral("ShowString"))));
    }
    return triples;
}

bool DebtsCoverPosting::PostRateChange(double amount, const QString& debtAccount,
                                       const ValueArray& addressees, int sideSign,
                                       const QDate& date) {
    if (Round(amount, 2) == 0)
        return true;
    int influenceSign = 1;
    QString debit = debtAccount;
    QString credit = accountRateIncome_;
    if (amount < 0) {
        influenceSign = -1;
        debit = accountRateExpense_;
        credit = debtAccount;
        amount = Round(amount * -1, 2);
    }
    // The references stand on the side where the debt account is in this entry, and
    // every further addressee on both sides, as the accounts demand.
    ValueArray triples = addressees;
    if (influenceSign != sideSign)
        for (int i = 0; i + 2 < triples.size(); i += 3)
            triples[i] = Value(qint16(-triples.at(i).toInt16()));
    const int count = triples.size() / 3;
    if (count > 1)
        for (int t = 1; t < count; ++t)
            triples << Value(qint16(-triples.at(3 * t).toInt16())) << triples.at(3 * t + 1)
                    << triples.at(3 * t + 2);
    // The entry is in base currency: its amount is the difference in base alone.
    const ValueResult r = op_->Methods(
        QStringLiteral("AddBR"),
        {Value(debit), Value(credit), Value(amount), Value(triples), Value(qint16(influenceSign)),
         Value(kNoCurrency), Value(0.0), Value(0.0), Value(QString()), Value(0.0), Value(QString()),
         Value(QString()), Value(DateParam(date))});
    const QString guid = r.ok() ? r.Value.toString() : QString();
    if (guid.isEmpty())
        return false;
    added_.append(guid);
    return true;
}

bool DebtsCoverPosting::addEntry(const QString& debit, const QString& credit, const Leg& primary,
                                 const Leg& secondary, double step, const ValueArray& addressees,
                                 const QDate& date) {
    // A side without a currency sum carries no currency, which AddBR would refuse.
    const bool secondaryCurr = isCurrency(secondary.currCode) && secondary.sumCurr > 0;
    const bool primaryCurr = isCurrency(primary.currCode) && primary.sumCurr > 0;
    const double sum = secondaryCurr ? secondary.sumCurr : (primaryCurr ? primary.sumCurr : step);
    const ValueResult r = op_->Methods(
        QStringLiteral("AddBR"),
        {Value(debit), Value(credit), Value(sum), Value(addressees), Value(qint16(secondary.sign)),
         Value(secondaryCurr ? secondary.currCode : kNoCurrency),
         Value(secondaryCurr ? secondary.rate : 0.0), Value(primaryCurr ? primary.sumCurr : 0.0),
         Value(primaryCurr ? primary.currCode : kNoCurrency),
         Value(primaryCurr ? primary.rate : 0.0), Value(QString()), Value(QString()),
         Value(DateParam(date))});
    const QString guid = r.ok() ? r.Value.toString() : QString();
    if (guid.isEmpty())
        return false;
    added_.append(guid);
    return true;
}

// The leg of a row in a step: its currency sum is the row's whole payment when the row
// is covered at once, else the step at the rate, the rate made to fit the step to nine
// places when the rounded sum does not give it back.
DebtsCoverPosting::Leg DebtsCoverPosting::legOf(const DebtsCoverRow& row, int sign, double step,
                                                double rest, double done) {
    Leg leg;
    leg.key = row.Key;
    leg.docText = row.DocText();
    leg.currCode = row.CurrencyCode;
    leg.rate = row.Rate;
    leg.sign = sign;
    leg.sumBase = step;
    if (!isCurrency(leg.currCode) || leg.rate <= 0)
        return leg;
    if (done == 0 && step == rest) {
        leg.sumCurr = row.PaymentSumCurr;
        return leg;
    }
    leg.sumCurr = Round(step / leg.rate + BaseSumAddend, 2);
    if (leg.sumCurr != 0 && Round(leg.rate * leg.sumCurr + BaseSumAddend, 2) != step)
        leg.rate = Round(step / leg.sumCurr, 9);
    return leg;
}

// The currency that rounding left on a row goes into its last entry; the rate follows.
void DebtsCoverPosting::foldCurrencyRest(Leg& leg, double restCurr, double step) {
    leg.sumCurr = Round(leg.sumCurr + restCurr, 2);
    if (leg.sumCurr <= 0) {
        leg.sumCurr = 0;
        leg.rate = 0;
    } else if (Round(leg.sumCurr * leg.rate + BaseSumAddend, 2) != step) {
        leg.rate = Round(step / leg.sumCurr, 9);
    }
}

bool DebtsCoverPosting::Run(const DebtsCoverSide& primary, const DebtsCoverSide& secondary) {
    added_.clear();
    if (!op_)
        return false;
    const QString debit = DebitAccount(primary, secondary);
    const QString credit = CreditAccount(primary, secondary);
    const int signP = PrimarySign();
    const int signS = SecondarySign();

    double restP = 0, restS = 0, restCurrP = 0, restCurrS = 0;
    double doneP = 0, doneS = 0, doneCurrP = 0, doneCurrS = 0;
    bool primaryShorter = false;
    int p = -1;
    int s = -1;
    ValueArray triplesP;
    int triplesOf = -1;
    QDate date = coverDate_;

    for (;;) {
        if (restP == 0) {
            if (++p >= primary.Rows.size())
                return true;
            restP = CoverCellValue(primary.Rows.at(p).PaymentLt);
            restCurrP = CoverCellValue(primary.Rows.at(p).PaymentSumCurr);
        }
        if (restS == 0) {
            if (++s >= secondary.Rows.size())
                break;
            restS = CoverCellValue(secondary.Rows.at(s).PaymentLt);
            restCurrS = CoverCellValue(secondary.Rows.at(s).PaymentSumCurr);
        }
        const DebtsCoverRow& rowP = primary.Rows.at(p);
        const DebtsCoverRow& rowS = secondary.Rows.at(s);
        triplesP = Addressees(primary, rowP, signP);
        triplesOf = p;
        const ValueArray triplesS = Addressees(secondary, rowS, signS);
        date = byCoveredDates_ ? qMax(rowP.Date, rowS.Date) : coverDate_;

        // The rate influence is booked before the row's first entry; the influence
        // counts a loss positive, the rate-change entry a gain.
        if (doneP == 0 &&
            !PostRateChange(-rowP.InfluenceSum, primary.Account, triplesP, signP, date))
            return false;
        if (doneS == 0 &&
            !PostRateChange(-rowS.InfluenceSum, secondary.Account, triplesS, signS, date))
            return false;

        const double step = qMin(restP, restS);
        if (restP < restS)
            primaryShorter = true;

        Leg legP = legOf(rowP, signP, step, restP, doneP);
        restP = Round(restP - step, 2);
        doneP += step;
        if (legP.sumCurr > 0) {
            restCurrP = Round(restCurrP - legP.sumCurr, 2);
            doneCurrP += legP.sumCurr;
            if (doneP > 0 && primaryShorter) {
                if (restCurrP == 0 && restP != 0 &&
                    !PostRateChange(signP * restP, primary.Account, triplesP, signP, date))
                    return false;
                if (restCurrP != 0)
                    foldCurrencyRest(legP, restCurrP, step);
            }
        }

        Leg legS = legOf(rowS, signS, step, restS, doneS);
        restS = Round(restS - step, 2);
        doneS += step;
        if (legS.sumCurr > 0) {
            restCurrS = Round(restCurrS - legS.sumCurr, 2);
            doneCurrS += legS.sumCurr;
            if (doneS > 0) {
                if (restS == 0 && restCurrS != 0)
                    foldCurrencyRest(legS, restCurrS, step);
                if (restS != 0 && restCurrS == 0 &&
                    !PostRateChange(signS * restS, secondary.Account, triplesS, signS, date))
                    return false;
            }
        }

        if (step <= 0) {
            // A pair with nothing to cover moves on; one that could never end stops.
            if (restP != 0 && restS != 0)
                return false;
            continue;
        }
        if (!addEntry(debit, credit, legP, legS, step, triplesP + triplesS, date))
            return false;
    }

    // The secondary rows ran out: a primary row whose currency is all covered leaves its
    // base rest to the rate change.
    if (restP > 0 && restCurrP == 0 && doneCurrP > 0) {
        if (triplesOf != p)
            triplesP = Addressees(primary, primary.Rows.at(p), signP);
        return PostRateChange(signP * restP, primary.Account, triplesP, signP, date);
    }
    return true;
}

} // namespace orvo

#include "settlement/selection_debts.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/rounding.h"
#include "frame/catalogue_operations.h"
#include "frame/catalogue_recordsets.h"

namespace orvo {

namespace {

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

} // namespace

QString SelectionDebts::ParameterText(const DebtsRequest& request) {
    QString text = quoted(QStringLiteral("0")) + QLatin1Char(',') + quoted(request.Account) +
                   QLatin1Char(',') + quoted(DateParam(request.Date)) + QLatin1Char(',') +
                   quoted(request.Addressee) + QLatin1Char(',') + QString::number(request.Sign);
    if (request.WithBranches)
        text += QStringLiteral(",1");
    return text;
}

ValueResult SelectionDebts::Read(const OrvoObjectUIOPtr& caller, const DebtsRequest& request) {
    if (!caller)
        return ValueResult::Failure(codes::RefusedNoWarning, QStringLiteral("Debts: no object"));
    const QString query = Catalogue::DebtsQueryName(request.Addressee, request.QueryFlag);
    const ValueResult r = caller->Properties(query, ParameterText(request));
    if (r.Code != 0)
        return r;
    return ValueResult::Of(Value(Copy(r.Value.toRecordset())));
}

RecordsetPtr SelectionDebts::Copy(const RecordsetPtr& rs) {
    if (!rs)
        return Recordset::Create();
    // The shared clone already turns a numeric field into a 9-byte decimal.
    RecordsetPtr copy = Catalogue::CloneRecordset(rs);
    copy->MoveFirst();
    return copy;
}

double SelectionDebts::Influence(double baseBalance, double currencyBalance, double rate,
                                 int influenceSign) {
    if (currencyBalance == 0 || rate <= 0)
        return 0;
    const double revalued = RoundBaseSum(rate * currencyBalance);
    return Round((baseBalance - revalued) * influenceSign, 2);
}

void SelectionDebts::RevalueRow(const RecordsetPtr& rs, double rate) {
    const double influence = Influence(NzDouble(rs->Field(QStringLiteral("LikutisLt"))),
                                       NzDouble(rs->Field(QStringLiteral("LikutisCurr"))), rate,
                                       NzInt(rs->Field(QStringLiteral("InfluenceSign"))));
    rs->SetField(QStringLiteral("RateCurr"), Value(0.0));
    rs->SetField(QStringLiteral("CurrentRate"), Value(rate > 0 ? rate : 0.0));
    rs->SetField(QStringLiteral("CurrInfluence"), Value(influence));
    rs->Update();
}

void SelectionDebts::Revalue(const RecordsetPtr& rs, const DictionaryPtr& rates) {
    if (!rs || rs->RecordCount() == 0)
        return;
    const qint64 mark = rs->Bookmark();
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const QString code = NzString(rs->Field(QStringLiteral("FCurrencyCode")));
        double rate = 0;
        if (rates && rates->Exists(code))
            rate = NzDouble(rates->Item(code));
        RevalueRow(rs, rate > 0 ? rate : 0.0);
    }
    rs->SetBookmark(mark);
}

} // namespace orvo

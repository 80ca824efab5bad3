#include "host/catalogues/currency_editor.h"

#include "core/dates.h"
#include "core/number_text.h"
#include "core/recordset.h"
#include "frame/messages.h"
#include "frame/orvo_constants_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_session_service.h"
#include "host/catalogues/catalogue_editor_rules.h"

namespace orvo::host {

namespace {

QString baseCurrency() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoSessionServicePtr session = services ? services->SessionService() : nullptr;
    const auto constants = session ? session->Constants() : nullptr;
    return constants ? constants->GetConstant(QStringLiteral("BaseCurrency")).toString().trimmed()
                     : QString();
}

RecordsetPtr emptyRates() {
    return Recordset::Create({FieldDef::Make(QStringLiteral("DateD"), FieldType::Date),
                              FieldDef::Make(QStringLiteral("Rate"), FieldType::Double),
                              FieldDef::Make(QStringLiteral("CurrencyRate"), FieldType::Double)});
}

QString quotedCode(const QString& code) {
    QString c = code.trimmed().toUpper();
    return QStringLiteral("'") + c.replace(QLatin1Char('\''), QStringLiteral("''")) +
           QStringLiteral("'");
}

} // namespace

bool CurrencyEditor::BaseIsEuro() const {
    return baseCurrency() == QLatin1String("EUR");
}

bool CurrencyEditor::IsBase() const {
    const Value v = object_ ? object_->Field(QStringLiteral("BaseCurrency")) : Value();
    return !v.isNull() && v.toBool();
}

QString CurrencyEditor::RateCaption() const {
    const QString base = baseCurrency();
    if (BaseIsEuro())
        return QStringLiteral("Kursas (valiutos vienetų už 1 EUR)");
    return QStringLiteral("Kursas (%1 už 1 valiutos vienetą)")
        .arg(base.isEmpty() ? QStringLiteral("Lt") : base);
}

QString CurrencyEditor::QuotedRateText(int row) const {
    if (!rates_ || row < 0 || row >= rates_->RowCountAll())
        return QString();
    const double quoted =
        rates_->ValueAt(row, rates_->FieldIndex(QStringLiteral("CurrencyRate"))).toDouble();
    const double rate = rates_->ValueAt(row, rates_->FieldIndex(QStringLiteral("Rate"))).toDouble();
    const double shown = quoted > 0 ? quoted : (BaseIsEuro() && rate > 0 ? 1.0 / rate : rate);
    return valueText(Value(shown));
}

void CurrencyEditor::normalize() {
    SetText(QStringLiteral("Code"), Text(QStringLiteral("Code")).trimmed().toUpper());
}

void CurrencyEditor::afterLoad() {
    LoadRates();
}

ResultRecord CurrencyEditor::LoadRates() {
    rates_ = emptyRates();
    if (IsNew() || !object_ || !object_->BO())
        return ResultRecord::Success();
    const BOResult r =
        object_->BO()->Call(QStringLiteral("DO0002200_GetDayRates"),
                            quotedCode(object_->Field(QStringLiteral("Code")).toString()));
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    if (const RecordsetPtr rs = r.Data.toRecordset())
        rates_ = rs;
    return ResultRecord::Success();
}

ResultRecord CurrencyEditor::AddRate(const QDate& date, const QString& typed) {
    QString refusal;
    if (IsNew())
        refusal = QStringLiteral("Pirma įrašykite valiutą, tada įveskite jos kursus.");
    else if (!rightRefusal(Action::Edit).isEmpty())
        refusal = rightRefusal(Action::Edit);
    else if (IsBase())
        refusal = QStringLiteral("Bazinės valiutos kursas visada lygus 1: jo įvesti nereikia.");
    else if (!date.isValid())
        refusal = QStringLiteral("Nurodykite kurso datą.");
    else
        refusal = RateTextRefusal(typed);
    if (!refusal.isEmpty())
        return refuse(refusal);
    const double quoted = NumberFromText(typed);
    const double rate = RateFromText(typed, BaseIsEuro());
    const ValueResult r =
        object_->Methods(QStringLiteral("SaveDayRate"), {Value(date), Value(rate), Value(quoted)});
    if (!r.ok()) {
        ShowError(r.Text);
        return ResultRecord::Failure(r.Code, r.Text);
    }
    return LoadRates();
}

ResultRecord CurrencyEditor::DeleteRate(const QDate& date) {
    if (IsNew() || !object_->BO())
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("Valiuta dar neįrašyta."));
    if (const QString no = rightRefusal(Action::Edit); !no.isEmpty())
        return refuse(no);
    const BOResult r =
        object_->BO()->Call(QStringLiteral("DO0002200_DeleteDayRate"),
                            quotedCode(object_->Field(QStringLiteral("Code")).toString()) +
                                QStringLiteral(",'") + DateParam(date) + QStringLiteral("'"));
    if (!r.ok()) {
        ShowError(r.Text);
        return ResultRecord::Failure(r.Code, r.Text);
    }
    return LoadRates();
}

} // namespace orvo::host

#include "settlement/currency_revaluation_variant.h"

#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_settings_service.h"

namespace orvo {

namespace {

OrvoSettingsServicePtr settings() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->SettingsService() : nullptr;
}

} // namespace

QString CurrencyRevaluationVariant::Stored() const {
    return QStringList{Mode, Account, Side, AddresseeRef, AddresseeText}.join(QLatin1Char('_'));
}

CurrencyRevaluationVariant CurrencyRevaluationVariant::FromStored(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('_'));
    CurrencyRevaluationVariant v;
    v.Mode = parts.value(0);
    v.Account = parts.value(1);
    v.Side = parts.value(2);
    v.AddresseeRef = parts.value(3);
    // The text of an addressee may hold "_" of its own.
    v.AddresseeText = parts.mid(4).join(QLatin1Char('_'));
    return v;
}

QString CurrencyRevaluationVariant::Caption() const {
    QString caption = Account;
    if (Mode == QLatin1String("ByOpers"))
        caption += QLatin1Char(' ') + Side;
    return caption + QStringLiteral(" * ") + AddresseeText;
}

bool CurrencyRevaluationVariant::SameAs(const CurrencyRevaluationVariant& other) const {
    return Stored() == other.Stored();
}

QString CurrencyRevaluationVariants::Section() {
    return QStringLiteral("O0201500");
}

QString CurrencyRevaluationVariants::Key() {
    return QStringLiteral("CurrencyRecalculateParameters");
}

void CurrencyRevaluationVariants::Load() {
    items_.clear();
    const OrvoSettingsServicePtr s = settings();
    if (!s)
        return;
    const QString text = s->GetSetting(Section(), Key());
    for (const QString& part : text.split(QLatin1Char('#'), Qt::SkipEmptyParts))
        items_.append(CurrencyRevaluationVariant::FromStored(part));
}

bool CurrencyRevaluationVariants::Add(const CurrencyRevaluationVariant& variant) {
    if (variant.Account.trimmed().isEmpty()) {
        ShowWarning(QStringLiteral("Neužduota sąskaita !"));
        return false;
    }
    for (const CurrencyRevaluationVariant& kept : items_)
        if (kept.SameAs(variant)) {
            ShowWarning(QStringLiteral("Toks variantas jau išsaugotas !"));
            return false;
        }
    items_.append(variant);
    store();
    return true;
}

bool CurrencyRevaluationVariants::Remove(int index) {
    if (index < 0 || index >= items_.size())
        return false;
    items_.removeAt(index);
    store();
    return true;
}

void CurrencyRevaluationVariants::store() const {
    const OrvoSettingsServicePtr s = settings();
    if (!s)
        return;
    QStringList parts;
    for (const CurrencyRevaluationVariant& v : items_)
        parts.append(v.Stored());
    s->SaveSetting(Section(), Key(), parts.join(QLatin1Char('#')));
}

} // namespace orvo

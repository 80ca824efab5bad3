// CurrencyEditor is the editor of a currency and its daily rates. The record's fields
// are those of every catalogue record; beside them it keeps the list of rates of the
// stored currency (the latest first) and adds, replaces or removes the rate of a day
// at once through the currency's SaveDayRate and DO0002200_DeleteDayRate. A rate is
// typed as the users quote it: under a euro base as foreign units per euro (the base
// currency per unit is its reciprocal), otherwise as base currency per unit. It must be
// a positive number; the base currency has no rates, and a currency not yet stored has
// to be saved before its rates are given.
#pragma once

#include "host/catalogues/catalogue_editor.h"

#include <QDate>

namespace orvo::host {

class CurrencyEditor : public CatalogueEditor {
public:
    using CatalogueEditor::CatalogueEditor;

    // DateD, Rate (base currency per unit), CurrencyRate (as quoted); never null.
    RecordsetPtr Rates() const { return rates_; }
    // The caption of the typed rate: which way it is quoted.
    QString RateCaption() const;
    // The rate of a row as the user types it, with a decimal comma.
    QString QuotedRateText(int row) const;
    bool IsBase() const;
    bool BaseIsEuro() const;

    // Keeps the rate of `date` typed as `typed`; a refusal is shown as a warning, a
    // failure of the host as an error.
    ResultRecord AddRate(const QDate& date, const QString& typed);
    ResultRecord DeleteRate(const QDate& date);
    ResultRecord LoadRates();

protected:
    void normalize() override;
    void afterLoad() override;

private:
    RecordsetPtr rates_;
};

} // namespace orvo::host

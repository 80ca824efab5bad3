#include "host/catalogues/catalogue_object.h"

#include "core/dates.h"
#include "core/recordset.h"
#include "frame/methods_convention.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/sum_by_words.h"

namespace orvo::host {

namespace {
PropertiesConvention conventionFor(const QString& code) {
    if (code == kinds::Currency)
        return PropertiesConvention(
            {}, {QStringLiteral("CurrencyList"), QStringLiteral("CurrencyByCode")});
    return PropertiesConvention();
}
} // namespace

CatalogueObject::CatalogueObject(const QString& code, const QString& title)
    : OrvoObjectUIOBase(code, QStringLiteral("UIO") + code.mid(1), title, conventionFor(code)) {}

ValueResult CatalogueObject::Methods(const QString& name, const ValueArray& parameters) {
    if (OID().left(8) == kinds::Currency) {
        if (name == QLatin1String("SumByWords")) {
            if (parameters.size() != 1)
                return ValueResult::Failure(
                    codes::Refused, QStringLiteral("Method SumByWords:\nKlaidingi parametrai !"));
            const QString code = Field(QStringLiteral("Code")).toString();
            return ValueResult::Of(Value(SumByWords(parameters.first().toDouble(), code)));
        }
        if (name == QLatin1String("SaveDayRate")) {
            // SaveDayRate(Date, Rate [, CurrencyRate]) for this currency.
            if (parameters.size() < 2 || parameters.size() > 3)
                return ValueResult::Failure(
                    codes::Refused, QStringLiteral("Method SaveDayRate:\nKlaidingi parametrai !"));
            QString text = QStringLiteral("'%1','%2',%3")
                               .arg(Field(QStringLiteral("Code"))
                                        .toString()
                                        .replace(QLatin1Char('\''), QStringLiteral("''")),
                                    DateParam(parameters.at(0).toDate()),
                                    QString::number(parameters.at(1).toDouble(), 'g', 17));
            if (parameters.size() == 3)
                text += QLatin1Char(',') + QString::number(parameters.at(2).toDouble(), 'g', 17);
            const BusinessObjectPtr bo = BO();
            if (!bo)
                return ValueResult::Failure(codes::Refused,
                                            QStringLiteral("SaveDayRate: knyga neatidaryta."));
            const BOResult r = bo->Call(QStringLiteral("SaveDayRate"), text);
            return r.ok() ? ValueResult::Of(Value(true)) : ValueResult::Failure(r.Code, r.Text);
        }
    }
    return OrvoObjectUIOBase::Methods(name, parameters);
}

} // namespace orvo::host

#include "host/catalogues/catalogue_object.h"

#include "core/dates.h"
#include "core/recordset.h"
#include "frame/forms.h"
#include "frame/methods_convention.h"
#include "frame/orvo_form.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "host/catalogues/catalogue_editor_fields.h"
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

ValueResult CatalogueObject::showRates(const QString& code) {
    // The currency's own window holds its daily rates: a settling window whose rate of the
    // day is missing sends the user there and reads the rates again afterwards.
    const BusinessObjectPtr bo = BO();
    const OrvoServicesPtr services = OrvoS();
    if (!bo || !services || !services->ObjectsService() || !services->FormsService())
        return ValueResult::Of(Value(false));
    const BOResult found = bo->Call(
        QStringLiteral("GetCurrencyByCode"),
        QStringLiteral("'%1'").arg(QString(code).replace(QLatin1Char('\''), QStringLiteral("''"))));
    const RecordsetPtr rows = found.ok() ? found.Data.toRecordset() : nullptr;
    if (!rows || rows->RecordCount() == 0)
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Valiuta „%1“ nerasta.").arg(code));
    rows->MoveFirst();
    const OrvoObjectUIOPtr currency =
        services->ObjectsService()->GetObjectUIO(rows->Field(QStringLiteral("OIDR")).toString());
    const OrvoFormPtr form = services->FormsService()->CreateForm(QStringLiteral("frmCurrency"));
    if (!currency || !form)
        return ValueResult::Of(Value(false));
    form->SetOrvoObjectUIO(currency);
    form->Show(true);
    return ValueResult::Of(Value(true));
}

std::optional<ValueResult> CatalogueObject::OwnProperty(const QString& name,
                                                        const QString& parameters) {
    if (name == QLatin1String("GetObjectForm"))
        return objectForm(parameters);
    return std::nullopt;
}

ValueResult CatalogueObject::objectForm(const QString& parameters) {
    const QString formName = CatalogueFormNameOf(OID().left(8));
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    const OrvoFormPtr form = forms && !formName.isEmpty() ? forms->CreateForm(formName) : nullptr;
    if (!form)
        return PropertiesConvention::Refuse(
            codes::Refused, QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.")
                                .arg(formName.isEmpty() ? OID().left(8) : formName));
    form->SetOrvoObjectUIO(shared_from_this());
    // GroupID;ClickedParameters: a catalogue record belongs to no group.
    QString clicked = parameters.section(QLatin1Char(';'), 1);
    clicked.replace(QStringLiteral("@|@"), QStringLiteral(";"));
    form->SetClickedParameters(clicked);
    return ValueResult::Of(Value(std::static_pointer_cast<ObjectBase>(form)));
}

ValueResult CatalogueObject::Methods(const QString& name, const ValueArray& parameters) {
    if (OID().left(8) == kinds::Currency) {
        if (name == QLatin1String("SumByWords")) {
            if (parameters.size() != 1)
                return ValueResult::Failure(
                    codes::Refused, QStringLiteral("Method SumByWords:\nKlaidingi parametrai !"));
            const QString code = Field(QStringLiteral("Code")).toString();
            return ValueResult::Of(Value(SumByWords(parameters.first().toDouble(), code)));
        }
        if (name == QLatin1String("CurrencyRates"))
            return showRates(parameters.value(0).toString().trimmed());
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

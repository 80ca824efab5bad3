#include "frame/catalogue_currency.h"

#include "core/null_readers.h"
#include "frame/catalogue_data_access.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo::Catalogue {

DictionaryPtr CurrencyListFor(const OrvoObjectUIOPtr& caller, const QDate& date,
                              bool useCurrencyRate) {
    if (const OrvoObjectUIOPtr op = GetOperationUIO(caller)) {
        const ValueResult r = op->Methods(QStringLiteral("GetCurrencyList"),
                                          ValueArray{Value(date), Value(useCurrencyRate)});
        if (r.ok())
            if (DictionaryPtr map = r.Value.toDictionary())
                return map;
    }
    return Dictionary::Create();
}

void FillCurrencyCombo(ComboControl& combo, const DictionaryPtr& map, const QString& selected) {
    combo.Clear();
    combo.AddItem(QStringLiteral("   "));
    if (map)
        for (const QString& code : map->Keys())
            combo.AddItem(code);
    const int index = combo.Items().indexOf(selected);
    combo.SetListIndex(index >= 0 ? index : 0);
}

OrvoObjectUIOPtr CurrencyObject(const QString& currencyCode) {
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    if (!objects)
        return nullptr;
    const QString kind = QStringLiteral("O0002200");
    const OrvoObjectUIOPtr blank = objects->GetObjectUIO(kind);
    if (!blank)
        return nullptr;
    const ValueResult found = blank->Properties(
        QStringLiteral("CurrencyByCode"), QStringLiteral("'") + currencyCode + QStringLiteral("'"));
    const RecordsetPtr rs = found.ok() ? found.Value.toRecordset() : nullptr;
    if (!rs || rs->RecordCount() == 0)
        return nullptr;
    rs->MoveFirst();
    const QString oidr = NzString(rs->Field(QStringLiteral("OIDR")));
    if (oidr.isEmpty())
        return nullptr;
    OrvoObjectUIPtr ui = blank->UI();
    if (!ui)
        ui = objects->GetObjectUI(kind);
    return ui ? ui->GetOrvoObject(oidr) : nullptr;
}

QString SumInWords(double sum, const QString& currencyCode) {
    const OrvoObjectUIOPtr currency = CurrencyObject(currencyCode);
    if (!currency)
        return QString();
    const ValueResult words =
        currency->Methods(QStringLiteral("SumByWords"), ValueArray{Value(sum)});
    return words.ok() ? words.Value.toString() : QString();
}

} // namespace orvo::Catalogue

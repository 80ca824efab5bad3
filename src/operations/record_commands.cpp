#include "operations/record_commands.h"

#include "core/dates.h"
#include "core/dictionary.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/today.h"
#include "frame/catalogue_addressees.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "operations/command_failure.h"
#include "operations/command_parameters.h"
#include "operations/operation_object.h"

#include <QDateTime>

namespace orvo {

namespace {

// The text cut to the defined size of the field, when the field has one.
QString fitted(const RecordsetPtr& rs, const QString& field, const QString& text) {
    const int index = rs->FieldIndex(field);
    if (index < 0)
        return text;
    const int size = rs->FieldDefinitions().at(index).definedSize;
    return size > 0 ? text.left(size) : text;
}

// Whether a currency row is the base currency: its flag is 1 (or a true boolean).
bool isBaseCurrencyRow(const Value& flag) {
    if (flag.kind() == Value::Kind::Bool)
        return flag.toBool();
    return NzLong(flag) == 1;
}

} // namespace

ValueResult RecordCommands::CreateProtocol() {
    const RecordsetPtr rs = op_.RsFields();
    if (!rs)
        return CommandFailure::NoOperationRow().ToResult();
    const OrvoServicesPtr services = OrvoS();
    const OrvoSessionServicePtr session = services ? services->SessionService() : nullptr;
    const SessionUser user = session ? session->CurrentUser() : SessionUser();
    const QDateTime now(Today(), QTime::currentTime());

    MaybeFailure failure;
    if (op_.OIDR().size() < 9) {
        WriteField(rs, QStringLiteral("CreatedByUserOIDR"),
                   Value(fitted(rs, QStringLiteral("CreatedByUserOIDR"), user.Code)), failure);
        WriteField(rs, QStringLiteral("CreatedByUserName"),
                   Value(fitted(rs, QStringLiteral("CreatedByUserName"), user.Name)), failure);
        WriteField(rs, QStringLiteral("CreationDate"), Value(now), failure);
    }
    WriteField(rs, QStringLiteral("ChangedByUserOIDR"),
               Value(fitted(rs, QStringLiteral("ChangedByUserOIDR"), user.Code)), failure);
    WriteField(rs, QStringLiteral("ChangedByUserName"),
               Value(fitted(rs, QStringLiteral("ChangedByUserName"), user.Name)), failure);
    WriteField(rs, QStringLiteral("CorrectionDate"), Value(now), failure);
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(true));
}

ValueResult RecordCommands::GetCurrencyList(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const Value date = p.At(0);
    const bool useCurrencyRate = p.Bool(1);
    if (p.Failed())
        return p.Failure()->ToResult();
    const QString dateText = date.isDateLike() ? DateParam(date.toDate()) : NzString(date);

    DictionaryPtr map = Dictionary::Create();
    const ValueResult answer = op_.Properties(QStringLiteral("CurrencyList"), dateText);
    const RecordsetPtr rs = answer.Code == 0 ? answer.Value.toRecordset() : nullptr;
    if (rs) {
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            if (isBaseCurrencyRow(rs->Field(QStringLiteral("BaseCurrency"))))
                continue;
            const QString code = NzString(rs->Field(QStringLiteral("Code")));
            if (map->Exists(code))
                continue;
            const QString rateField =
                useCurrencyRate ? QStringLiteral("CurrencyRate") : QStringLiteral("Rate");
            map->Add(code, Value(NzDouble(rs->Field(rateField))));
        }
    }
    return ValueResult::Of(Value(map));
}

ValueResult RecordCommands::CurrencyRates(const ValueArray& parameters) {
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIOPtr currency =
        objects ? objects->GetObjectUIO(QStringLiteral("O0002200")) : nullptr;
    if (!currency)
        return ValueResult::Of(Value(false));
    CommandParameters p(parameters);
    const Value rate = p.At(0);
    const Value date = p.Given(1) && !p.Text(1).trimmed().isEmpty() ? p.At(1) : Value(Today());
    return currency->Methods(QStringLiteral("CurrencyRates"), ValueArray{rate, date});
}

QString RecordCommands::FormatHashDotZeroZero(double value) {
    QString text = FormatNumberLt(value, 2, false);
    if (text.startsWith(QStringLiteral("0,")))
        text.remove(0, 1);
    else if (text.startsWith(QStringLiteral("-0,")))
        text.remove(1, 1);
    return text;
}

ValueResult RecordCommands::CheckContractSums() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoSettingsServicePtr settings = services ? services->SettingsService() : nullptr;
    const QString show =
        settings ? settings->GetSetting(QStringLiteral("Contract"),
                                        QStringLiteral("IsShowMessageForContractSumOver"),
                                        QStringLiteral("0"))
                 : QStringLiteral("0");
    if (show == QLatin1String("0"))
        return ValueResult::Of(Value());

    const RecordsetPtr br = op_.Entries();
    const OrvoObjectUIOPtr self = op_.Self();
    if (!br || !self)
        return ValueResult::Of(Value());
    const qint64 bookmark = br->Bookmark();
    QString contract;
    for (br->MoveFirst(); !br->Eof() && contract.isEmpty(); br->MoveNext())
        contract = Catalogue::FindProperty(self, QStringLiteral("O3010100"));
    if (bookmark >= 0)
        br->SetBookmark(bookmark);
    if (contract.isEmpty())
        return ValueResult::Of(Value());

    const OrvoObjectsServicePtr objects = services->ObjectsService();
    const OrvoObjectUIOPtr contracts =
        objects ? objects->GetObjectUIO(QStringLiteral("O3010100")) : nullptr;
    if (!contracts)
        return ValueResult::Failure(codes::RefusedNoWarning,
                                    QStringLiteral("Sutarčių objektas nepasiekiamas!"));
    const ValueResult answer = contracts->Properties(
        QStringLiteral("ContractTotalSums"), QStringLiteral("'") + contract + QStringLiteral("'"));
    if (answer.Code != 0)
        return ValueResult::Failure(answer.Code, answer.Text);
    const RecordsetPtr sums = answer.Value.toRecordset();
    if (!sums || sums->RecordCount() == 0)
        return ValueResult::Of(Value());
    sums->MoveFirst();
    const double excess = NzDouble(sums->Field(QStringLiteral("TradeCommonSum"))) -
                          NzDouble(sums->Field(QStringLiteral("ContractTotalSum")));
    if (!(excess > 0))
        return ValueResult::Of(Value());
    return ValueResult::Failure(4, QStringLiteral("Sutarties Nr. ") +
                                       NzString(sums->Field(QStringLiteral("ContractName"))) +
                                       QStringLiteral(" vertė viršyta ") +
                                       FormatHashDotZeroZero(excess) + QStringLiteral(" ") +
                                       NzString(sums->Field(QStringLiteral("CurrencyName"))) +
                                       QStringLiteral("!"));
}

} // namespace orvo

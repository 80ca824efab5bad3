#include "operations/command_failure.h"

#include "frame/methods_convention.h"

namespace orvo {

ValueResult CommandFailure::ToResult() const {
    return ValueResult::Failure(number_, description_ + MethodsConvention::LineBreak() +
                                             QStringLiteral("Klaida!"));
}

CommandFailure CommandFailure::NoOperationRow() {
    return {NoRecord, QStringLiteral("Operacijos įrašas neperskaitytas.")};
}

CommandFailure CommandFailure::Missing(const QString& nestedName) {
    return {MissingNested,
            QStringLiteral("Nėra įrašų rinkinio ") + nestedName + QStringLiteral(".")};
}

CommandFailure CommandFailure::Refused(const QString& fieldName) {
    return {FieldRefused,
            QStringLiteral("Laukas ") + fieldName + QStringLiteral(" nepriėmė reikšmės.")};
}

CommandFailure CommandFailure::WrongType(int position) {
    return {ParameterType, QStringLiteral("Parametro Nr. ") + QString::number(position) +
                               QStringLiteral(" tipas netinkamas.")};
}

CommandFailure CommandFailure::BadAnswer(const QString& what) {
    return {AnswerShape, QStringLiteral("Netinkamas atsakymas: ") + what + QStringLiteral(".")};
}

bool WriteField(const RecordsetPtr& rs, const QString& field, const Value& value,
                MaybeFailure& failure) {
    if (failure)
        return false;
    if (!rs) {
        failure = CommandFailure::Refused(field);
        return false;
    }
    if (!rs->HasField(field) || !rs->SetField(field, value)) {
        failure = CommandFailure::Refused(field);
        return false;
    }
    return true;
}

RecordsetPtr NestedOf(const RecordsetPtr& rs, const QString& field, MaybeFailure& failure) {
    RecordsetPtr nested = rs ? rs->Field(field).toRecordset() : nullptr;
    if (!nested && !failure)
        failure = CommandFailure::Missing(field);
    return nested;
}

} // namespace orvo

#include "frame/methods_convention.h"

namespace orvo {

QString MethodsConvention::WrongParametersText(const QString& command) {
    return QStringLiteral("Method ") + command + QStringLiteral(":") + LineBreak() +
           QStringLiteral("Klaidingi parametrai !");
}

ValueResult MethodsConvention::WrongParameters(const QString& command) {
    return ValueResult::Failure(codes::Refused, WrongParametersText(command));
}

bool MethodsConvention::CountIn(const ValueArray& parameters, int minCount, int maxCount) {
    const int n = parameters.size();
    if (n < minCount)
        return false;
    return maxCount < 0 || n <= maxCount;
}

Value MethodsConvention::At(const ValueArray& parameters, int position) {
    if (position < 0 || position >= parameters.size())
        return Value();
    return parameters.at(position);
}

ValueResult MethodsConvention::UnknownCommand(const QString& command) {
    return ValueResult::Failure(codes::RefusedNoWarning, QStringLiteral("Method ") + command +
                                                             QStringLiteral(":") + LineBreak() +
                                                             QStringLiteral("Unknown command"));
}

} // namespace orvo

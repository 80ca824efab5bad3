#include "host/methods/method_arguments.h"

#include "host/methods/method_codes.h"
#include "host/methods/method_definition.h"
#include "host/methods/parameter_kind.h"
#include "host/methods/parameter_text.h"

namespace orvo::host {

namespace {

// "parametro" after a count ending in 1 (but not 11), else "parametrų": the genitive
// that "tikėtasi" governs.
QString parametersWord(int n) {
    return (n % 10 == 1 && n % 100 != 11) ? QStringLiteral("parametro")
                                          : QStringLiteral("parametrų");
}

QString expectedCount(const MethodDefinition& m) {
    const int lo = m.RequiredCount();
    const int hi = m.MaximumCount();
    if (hi < 0)
        return QStringLiteral("bent %1 %2").arg(QString::number(lo), parametersWord(lo));
    if (lo == hi)
        return QStringLiteral("%1 %2").arg(QString::number(lo), parametersWord(lo));
    return QStringLiteral("nuo %1 iki %2 %3")
        .arg(QString::number(lo), QString::number(hi), parametersWord(hi));
}

QString shortValue(const QString& v) {
    const int limit = 40;
    return v.size() > limit ? v.left(limit) + QStringLiteral("...") : v;
}

QString lowerFirst(const QString& text) {
    if (text.isEmpty())
        return text;
    return text.left(1).toLower() + text.mid(1);
}

} // namespace

ResultRecord MethodArguments::Bind(const MethodDefinition& method, const QString& parameterText,
                                   const Value& input, MethodArguments* out) {
    const QString prefix = QStringLiteral("Metodas ") + method.name + QStringLiteral(": ");
    const ParsedParameters parsed = ParameterText::Parse(parameterText, method.syntax);
    if (!parsed.ok())
        return ResultRecord::Failure(parsed.Code, prefix + lowerFirst(parsed.Text));

    const int given = parsed.values.size();
    const int lo = method.RequiredCount();
    const int hi = method.MaximumCount();
    if (given < lo || (hi >= 0 && given > hi))
        return ResultRecord::Failure(bo_codes::WrongParameterCount,
                                     prefix +
                                         QStringLiteral("tikėtasi %1, gauta %2")
                                             .arg(expectedCount(method), QString::number(given)));

    MethodArguments args;
    args.input_ = input;
    args.givenCount_ = given;
    for (int i = 0; i < method.parameters.size(); ++i) {
        const ParameterSpec& spec = method.parameters.at(i);
        const int last = spec.repeated ? given : i + 1;
        ValueArray read;
        for (int k = i; k < last && k < given; ++k) {
            const ParameterToken& token = parsed.values.at(k);
            Value v;
            if (!ReadParameterValue(token, spec.kind, &v))
                return ResultRecord::Failure(
                    bo_codes::WrongParameterKind,
                    prefix + QStringLiteral("parametro %1 reikšmė '%2' (%3 pozicijoje) netinka: "
                                            "laukta %4")
                                 .arg(spec.name, shortValue(token.text),
                                      QString::number(token.position),
                                      ParameterKindDescription(spec.kind)));
            read.append(v);
        }
        if (spec.repeated)
            args.Append(spec.name, Value(read), !read.isEmpty());
        else if (read.isEmpty())
            args.Append(spec.name, spec.defaultValue, false);
        else
            args.Append(spec.name, read.first(), true);
    }
    *out = args;
    return ResultRecord::Success();
}

const Value& MethodArguments::At(int index) const {
    static const Value null;
    if (index < 0 || index >= values_.size())
        return null;
    return values_.at(index);
}

int MethodArguments::indexOf(const QString& name) const {
    return names_.indexOf(name);
}

Value MethodArguments::Get(const QString& name) const {
    return At(indexOf(name));
}

bool MethodArguments::IsGiven(const QString& name) const {
    const int i = indexOf(name);
    return i >= 0 && given_.at(i);
}

const ValueArray& MethodArguments::Array(const QString& name) const {
    return At(indexOf(name)).toArray();
}

void MethodArguments::Append(const QString& name, const Value& value, bool given) {
    names_.append(name);
    values_.append(value);
    given_.append(given);
}

} // namespace orvo::host

#include "host/methods/method_definition.h"

#include <QStringList>

namespace orvo::host {

namespace {

QString fieldTypeName(FieldType t) {
    if (IsTextType(t))
        return QStringLiteral("text");
    if (IsIntegerType(t))
        return QStringLiteral("integer");
    if (IsFractionalType(t))
        return QStringLiteral("number");
    if (IsDateType(t))
        return QStringLiteral("date");
    switch (t) {
    case FieldType::Boolean:
        return QStringLiteral("boolean");
    case FieldType::Chapter:
        return QStringLiteral("recordset");
    default:
        return QStringLiteral("variant");
    }
}

} // namespace

int MethodDefinition::RequiredCount() const {
    int n = 0;
    for (const ParameterSpec& p : parameters)
        if (!p.optional)
            ++n;
    return n;
}

int MethodDefinition::MaximumCount() const {
    if (!parameters.isEmpty() && parameters.last().repeated)
        return -1;
    return parameters.size();
}

QString MethodDefinition::Signature() const {
    QStringList parts;
    for (const ParameterSpec& p : parameters) {
        QString one = p.name + QStringLiteral(": ") + ParameterKindName(p.kind);
        if (p.repeated)
            one += QStringLiteral("...");
        if (p.optional)
            one = QChar('[') + one + QChar(']');
        parts.append(one);
    }
    const QString sep =
        syntax == ParameterSyntax::Semicolon ? QStringLiteral("; ") : QStringLiteral(", ");
    return name + QChar('(') + parts.join(sep) + QChar(')');
}

QString MethodDefinition::FieldList() const {
    QStringList parts;
    for (const FieldDef& f : fields)
        parts.append(f.name + QChar(' ') + fieldTypeName(f.type));
    return parts.join(QStringLiteral(", "));
}

} // namespace orvo::host

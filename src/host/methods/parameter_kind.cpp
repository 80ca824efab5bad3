#include "host/methods/parameter_kind.h"

#include <QDate>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace orvo::host {

QString ParameterKindName(ParameterKind kind) {
    switch (kind) {
    case ParameterKind::Text:
        return QStringLiteral("text");
    case ParameterKind::Integer:
        return QStringLiteral("integer");
    case ParameterKind::Number:
        return QStringLiteral("number");
    case ParameterKind::Date:
        return QStringLiteral("date");
    case ParameterKind::Boolean:
        return QStringLiteral("boolean");
    case ParameterKind::OIDR:
        return QStringLiteral("OIDR");
    }
    return QString();
}

QString ParameterKindDescription(ParameterKind kind) {
    switch (kind) {
    case ParameterKind::Text:
        return QStringLiteral("tekstas");
    case ParameterKind::Integer:
        return QStringLiteral("sveikasis skaičius");
    case ParameterKind::Number:
        return QStringLiteral("skaičius");
    case ParameterKind::Date:
        return QStringLiteral("data (yyyy.mm.dd)");
    case ParameterKind::Boolean:
        return QStringLiteral("loginė reikšmė (True, False, 0, 1)");
    case ParameterKind::OIDR:
        return QStringLiteral("objekto nuoroda (OIDR)");
    }
    return QString();
}

namespace {

bool readInteger(const QString& text, Value* out) {
    static const QRegularExpression re(QStringLiteral("^[+-]?[0-9]{1,18}$"));
    const QString t = text.trimmed();
    if (!re.match(t).hasMatch())
        return false;
    bool ok = false;
    const qlonglong v = t.toLongLong(&ok);
    if (!ok || v < std::numeric_limits<qint32>::min() || v > std::numeric_limits<qint32>::max())
        return false;
    *out = Value(qint32(v));
    return true;
}

// A number as the component writes it unquoted (a dot), or inside quotes, where a
// comma may stand for the dot because the text came from a Lithuanian locale.
bool readNumber(const QString& text, bool commaAllowed, Value* out) {
    static const QRegularExpression re(
        QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]{1,3})?$"));
    QString t = text.trimmed();
    if (commaAllowed && t.count(QChar(',')) == 1 && !t.contains(QChar('.')))
        t.replace(QChar(','), QChar('.'));
    if (!re.match(t).hasMatch())
        return false;
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (!ok || !std::isfinite(d))
        return false;
    *out = Value(d);
    return true;
}

bool readDate(const QString& text, Value* out) {
    static const QRegularExpression re(QStringLiteral("^([0-9]{4})([.-])([0-9]{2})\\2([0-9]{2})$"));
    const auto m = re.match(text.trimmed());
    if (!m.hasMatch())
        return false;
    const QDate d(m.captured(1).toInt(), m.captured(3).toInt(), m.captured(4).toInt());
    if (!d.isValid())
        return false;
    *out = Value(d);
    return true;
}

bool readBoolean(const QString& text, Value* out) {
    const QString t = text.trimmed();
    if (t.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0) {
        *out = Value(true);
        return true;
    }
    if (t.compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0) {
        *out = Value(false);
        return true;
    }
    Value n;
    if (!readNumber(t, false, &n))
        return false;
    *out = Value(n.toDouble() != 0.0);
    return true;
}

bool readOidr(const QString& text, Value* out) {
    static const QRegularExpression re(QStringLiteral("^[A-Za-z][0-9]{7}[0-9]*$"));
    const QString t = text.trimmed();
    if (!t.isEmpty() && !re.match(t).hasMatch())
        return false;
    *out = Value(t);
    return true;
}

} // namespace

bool ReadParameterValue(const ParameterToken& token, ParameterKind kind, Value* out) {
    const bool isNumber = token.kind == ParameterToken::Kind::Number;
    switch (kind) {
    case ParameterKind::Text:
        *out = Value(token.text);
        return true;
    case ParameterKind::Integer:
        return readInteger(token.text, out);
    case ParameterKind::Number:
        return readNumber(token.text, !isNumber, out);
    case ParameterKind::Date:
        return !isNumber && readDate(token.text, out);
    case ParameterKind::Boolean:
        return readBoolean(token.text, out);
    case ParameterKind::OIDR:
        return !isNumber && readOidr(token.text, out);
    }
    return false;
}

} // namespace orvo::host

#include "host/methods/parameter_text.h"

#include "host/methods/method_codes.h"

#include <QRegularExpression>

namespace orvo::host {

namespace {

const QChar kQuote('\'');

bool isBlank(QChar c) {
    return c.isSpace();
}

// A piece of the text for a message: at most 20 characters, with characters that
// cannot be shown written as their code.
QString shown(const QString& piece) {
    QString out;
    const int limit = 20;
    for (int i = 0; i < piece.size() && i < limit; ++i) {
        const QChar c = piece.at(i);
        if (c.isPrint() && !c.isSurrogate())
            out += c;
        else
            out += QStringLiteral("\\u%1").arg(int(c.unicode()), 4, 16, QChar('0'));
    }
    if (piece.size() > limit)
        out += QStringLiteral("...");
    return out;
}

ParsedParameters failure(const QString& what) {
    ParsedParameters p;
    p.Code = bo_codes::BadParameterText;
    p.Text = QStringLiteral("Klaidingas parametrų tekstas: ") + what;
    return p;
}

ParsedParameters unterminated(int position) {
    return failure(QStringLiteral("neuždaryta kabutė, atidaryta %1 pozicijoje").arg(position));
}

bool isNone(const QString& text) {
    return text.trimmed().compare(QStringLiteral("None"), Qt::CaseInsensitive) == 0;
}

// In the Quoted syntax blanks alone are no values; in the other two they are a value
// (three blanks are the base currency's code), so only the empty text is nothing.
bool isNoneOrBlank(const QString& text) {
    return text.trimmed().isEmpty() || isNone(text);
}

bool isNoneOrEmpty(const QString& text) {
    return text.isEmpty() || isNone(text);
}

bool looksLikeNumber(const QString& run) {
    static const QRegularExpression re(
        QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?$"));
    return re.match(run).hasMatch();
}

// Reads the quoted value that starts at s[start] (a quote). On success `end` is the
// index after the closing quote, `value` the text inside and `origin` the index in s
// of each character of `value`. False when the quote is never closed.
bool scanQuoted(const QString& s, int start, int* end, QString* value, QVector<int>* origin) {
    int j = start + 1;
    const int n = s.size();
    while (j < n) {
        const QChar c = s.at(j);
        if (c == kQuote) {
            if (j + 1 < n && s.at(j + 1) == kQuote) {
                value->append(kQuote);
                if (origin)
                    origin->append(j);
                j += 2;
                continue;
            }
            *end = j + 1;
            return true;
        }
        value->append(c);
        if (origin)
            origin->append(j);
        ++j;
    }
    return false;
}

int skipBlanks(const QString& s, int i) {
    while (i < s.size() && isBlank(s.at(i)))
        ++i;
    return i;
}

// The end of an unquoted run: the next blank, comma or quote.
int runEnd(const QString& s, int i) {
    while (i < s.size()) {
        const QChar c = s.at(i);
        if (isBlank(c) || c == QChar(',') || c == kQuote)
            break;
        ++i;
    }
    return i;
}

ParsedParameters parseQuoted(const QString& s) {
    ParsedParameters result;
    if (isNoneOrBlank(s))
        return result;
    const int n = s.size();
    int i = skipBlanks(s, 0);
    while (true) {
        i = skipBlanks(s, i);
        if (i >= n)
            return failure(QStringLiteral("trūksta reikšmės %1 pozicijoje").arg(i + 1));
        const QChar c = s.at(i);
        ParameterToken token;
        token.position = i + 1;
        if (c == kQuote) {
            int end = i;
            if (!scanQuoted(s, i, &end, &token.text, nullptr))
                return unterminated(i + 1);
            token.kind = ParameterToken::Kind::Quoted;
            i = end;
        } else if (c == QChar(',')) {
            return failure(QStringLiteral("trūksta reikšmės %1 pozicijoje").arg(i + 1));
        } else if (c.isDigit() || c == QChar('-') || c == QChar('+') || c == QChar('.')) {
            const int end = runEnd(s, i);
            const QString run = s.mid(i, end - i);
            if (!looksLikeNumber(run))
                return failure(QStringLiteral("netinkamas skaičius '%1' %2 pozicijoje")
                                   .arg(shown(run), QString::number(i + 1)));
            token.kind = ParameterToken::Kind::Number;
            token.text = run;
            i = end;
        } else if (c.isLetter()) {
            const int end = runEnd(s, i);
            const QString run = s.mid(i, end - i);
            if (run.compare(QStringLiteral("True"), Qt::CaseInsensitive) != 0 &&
                run.compare(QStringLiteral("False"), Qt::CaseInsensitive) != 0)
                return failure(QStringLiteral("reikšmė '%1' %2 pozicijoje turi būti kabutėse")
                                   .arg(shown(run), QString::number(i + 1)));
            token.kind = ParameterToken::Kind::Bare;
            token.text = run;
            i = end;
        } else {
            return failure(QStringLiteral("netikėtas ženklas '%1' %2 pozicijoje")
                               .arg(shown(c), QString::number(i + 1)));
        }
        result.values.append(token);

        i = skipBlanks(s, i);
        if (i >= n)
            return result;
        const QChar sep = s.at(i);
        if (sep == QChar(',')) {
            ++i;
            continue;
        }
        if (sep == kQuote)
            return failure(
                QStringLiteral("nereikalinga kabutė %1 pozicijoje (trūksta kablelio?)").arg(i + 1));
        return failure(QStringLiteral("%1 pozicijoje laukta kablelio, rasta '%2'")
                           .arg(QString::number(i + 1), shown(s.mid(i, runEnd(s, i) - i))));
    }
}

// The one value of a Whole text, or of a Semicolon text before it is split: the text
// as it stands, or, when it starts with a quote, the one quoted value it must be.
// `origin` maps each character of the value to its index in s.
ParsedParameters unwrap(const QString& s, QString* value, QVector<int>* origin) {
    const int first = skipBlanks(s, 0);
    if (first < s.size() && s.at(first) == kQuote) {
        int end = first;
        if (!scanQuoted(s, first, &end, value, origin))
            return unterminated(first + 1);
        const int after = skipBlanks(s, end);
        if (after < s.size()) {
            if (s.at(after) == kQuote)
                return failure(QStringLiteral("nereikalinga kabutė %1 pozicijoje").arg(after + 1));
            return failure(QStringLiteral("%1 pozicijoje laukta teksto pabaigos, rasta '%2'")
                               .arg(QString::number(after + 1), shown(s.mid(after))));
        }
        return {};
    }
    *value = s;
    origin->resize(s.size());
    for (int k = 0; k < s.size(); ++k)
        (*origin)[k] = k;
    return {};
}

ParsedParameters parseWhole(const QString& s) {
    ParsedParameters result;
    if (isNoneOrEmpty(s))
        return result;
    QString value;
    QVector<int> origin;
    ParsedParameters u = unwrap(s, &value, &origin);
    if (!u.ok())
        return u;
    const int first = skipBlanks(s, 0);
    ParameterToken token;
    token.kind = s.at(first) == kQuote ? ParameterToken::Kind::Quoted : ParameterToken::Kind::Bare;
    token.text = value;
    token.position = (s.at(first) == kQuote ? first : 0) + 1;
    result.values.append(token);
    return result;
}

ParsedParameters parseSemicolon(const QString& s) {
    ParsedParameters result;
    if (isNoneOrEmpty(s))
        return result;
    QString value;
    QVector<int> origin;
    ParsedParameters u = unwrap(s, &value, &origin);
    if (!u.ok())
        return u;
    const bool quoted = s.at(skipBlanks(s, 0)) == kQuote;
    // Where a piece that starts at the end of the value lies in s: after the last
    // character, or just inside the quotes of an empty quoted text.
    const int tail = origin.isEmpty() ? skipBlanks(s, 0) + (quoted ? 1 : 0) : origin.last() + 1;
    int start = 0;
    while (true) {
        const int semi = value.indexOf(QChar(';'), start);
        const int end = semi < 0 ? value.size() : semi;
        ParameterToken token;
        token.kind = quoted ? ParameterToken::Kind::Quoted : ParameterToken::Kind::Bare;
        token.text = value.mid(start, end - start);
        token.position = (start < origin.size() ? origin.at(start) : tail) + 1;
        result.values.append(token);
        if (semi < 0)
            break;
        start = semi + 1;
    }
    return result;
}

} // namespace

ParsedParameters ParameterText::Parse(const QString& text, ParameterSyntax syntax) {
    switch (syntax) {
    case ParameterSyntax::Semicolon:
        return parseSemicolon(text);
    case ParameterSyntax::Whole:
        return parseWhole(text);
    case ParameterSyntax::Quoted:
        break;
    }
    return parseQuoted(text);
}

QString ParameterText::Quote(const QString& value) {
    QString inner = value;
    inner.replace(kQuote, QStringLiteral("''"));
    return kQuote + inner + kQuote;
}

QString ParameterText::Join(const QStringList& values) {
    if (values.isEmpty())
        return QStringLiteral("None");
    QStringList quoted;
    quoted.reserve(values.size());
    for (const QString& v : values)
        quoted.append(Quote(v));
    return quoted.join(QChar(','));
}

QString ParameterText::SyntaxName(ParameterSyntax syntax) {
    switch (syntax) {
    case ParameterSyntax::Semicolon:
        return QStringLiteral("semicolon");
    case ParameterSyntax::Whole:
        return QStringLiteral("whole");
    case ParameterSyntax::Quoted:
        break;
    }
    return QStringLiteral("quoted");
}

} // namespace orvo::host

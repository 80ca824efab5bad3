#include "host/storage/placeholders.h"

namespace orvo::host {

namespace {

bool IsWordChar(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

// The end (one past) of a quoted run that starts at `i` with `quote`. A doubled quote
// stays inside; with `backslash` a backslash escapes the next character (E'...').
qsizetype SkipQuoted(const QString& s, qsizetype i, QChar quote, bool backslash) {
    const qsizetype n = s.size();
    ++i;
    while (i < n) {
        const QChar c = s[i];
        if (backslash && c == QLatin1Char('\\')) {
            i += 2;
            continue;
        }
        if (c == quote) {
            if (i + 1 < n && s[i + 1] == quote) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return n;
}

// A dollar-quote tag at `i` ($$ or $name$); its length, or 0 when there is none.
qsizetype DollarTag(const QString& s, qsizetype i) {
    const qsizetype n = s.size();
    qsizetype j = i + 1;
    if (j < n && (s[j].isDigit()))
        return 0; // $1 is a parameter, not a tag
    while (j < n && IsWordChar(s[j]))
        ++j;
    if (j < n && s[j] == QLatin1Char('$'))
        return j - i + 1;
    return 0;
}

} // namespace

QString NumberPlaceholders(const QString& sql, int* count) {
    QString out;
    out.reserve(sql.size() + 16);
    int number = 0;
    const qsizetype n = sql.size();
    qsizetype i = 0;
    while (i < n) {
        const QChar c = sql[i];
        qsizetype end = i + 1;
        if (c == QLatin1Char('\'')) {
            const bool escapeString =
                i > 0 && (sql[i - 1] == QLatin1Char('E') || sql[i - 1] == QLatin1Char('e')) &&
                (i < 2 || !IsWordChar(sql[i - 2]));
            end = SkipQuoted(sql, i, c, escapeString);
        } else if (c == QLatin1Char('"')) {
            end = SkipQuoted(sql, i, c, false);
        } else if (c == QLatin1Char('-') && i + 1 < n && sql[i + 1] == QLatin1Char('-')) {
            end = sql.indexOf(QLatin1Char('\n'), i);
            end = end < 0 ? n : end + 1;
        } else if (c == QLatin1Char('/') && i + 1 < n && sql[i + 1] == QLatin1Char('*')) {
            // PostgreSQL's block comments nest.
            int depth = 1;
            end = i + 2;
            while (end < n && depth > 0) {
                if (sql[end] == QLatin1Char('/') && end + 1 < n &&
                    sql[end + 1] == QLatin1Char('*')) {
                    ++depth;
                    end += 2;
                } else if (sql[end] == QLatin1Char('*') && end + 1 < n &&
                           sql[end + 1] == QLatin1Char('/')) {
                    --depth;
                    end += 2;
                } else {
                    ++end;
                }
            }
        } else if (c == QLatin1Char('$') && (i == 0 || !IsWordChar(sql[i - 1]))) {
            const qsizetype tagLength = DollarTag(sql, i);
            if (tagLength > 0) {
                const QString tag = sql.mid(i, tagLength);
                const qsizetype close = sql.indexOf(tag, i + tagLength);
                end = close < 0 ? n : close + tagLength;
            }
        } else if (c == QLatin1Char('?')) {
            out += QLatin1Char('$') + QString::number(++number);
            i = end;
            continue;
        }
        out += QStringView(sql).mid(i, end - i);
        i = end;
    }
    if (count)
        *count = number;
    return out;
}

} // namespace orvo::host

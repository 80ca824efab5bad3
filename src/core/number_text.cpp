#include "core/number_text.h"

#include "core/rounding.h"

#include <charconv>
#include <cmath>
#include <string>

namespace orvo {

namespace {

bool isGroupBlank(QChar c) {
    return c == QChar(0x0020) || c == QChar(0x00A0) || c == QChar(0x202F);
}

bool isAsciiDigit(QChar c) {
    return c >= QChar('0') && c <= QChar('9');
}

double parseCLocale(const std::string& text, bool* ok) {
    double result = 0.0;
    const auto res = std::from_chars(text.data(), text.data() + text.size(), result);
    *ok = res.ec == std::errc() && res.ptr == text.data() + text.size() && std::isfinite(result);
    return *ok ? result : 0.0;
}

// The number of a Lithuanian text in the C form that from_chars reads ("-1234.56"), or
// an empty text when it is not one number.
std::string normalisedNumber(const QString& text) {
    std::string out;
    int i = 0;
    const QString t = text.trimmed();
    const int n = static_cast<int>(t.size());
    auto skipBlanks = [&] {
        while (i < n && isGroupBlank(t.at(i)))
            ++i;
    };
    if (i < n && (t.at(i) == QChar('-') || t.at(i) == QChar('+'))) {
        if (t.at(i) == QChar('-'))
            out.push_back('-');
        ++i;
        skipBlanks();
    }
    bool digits = false;
    bool mark = false;
    for (; i < n; ++i) {
        const QChar c = t.at(i);
        if (isAsciiDigit(c)) {
            out.push_back(static_cast<char>(c.unicode()));
            digits = true;
        } else if (c == QChar(',') || c == QChar('.')) {
            if (mark)
                return std::string();
            mark = true;
            out.push_back('.');
        } else if (!isGroupBlank(c)) {
            break;
        }
    }
    if (!digits)
        return std::string();
    if (i < n && (t.at(i) == QChar('e') || t.at(i) == QChar('E'))) {
        out.push_back('e');
        ++i;
        if (i < n && (t.at(i) == QChar('-') || t.at(i) == QChar('+')))
            out.push_back(static_cast<char>(t.at(i++).unicode()));
        bool expDigits = false;
        for (; i < n && isAsciiDigit(t.at(i)); ++i) {
            out.push_back(static_cast<char>(t.at(i).unicode()));
            expDigits = true;
        }
        if (!expDigits)
            return std::string();
    }
    if (i != n)
        return std::string();
    // from_chars takes neither a leading "+" nor a bare trailing ".": "5," is 5.
    if (out.back() == '.')
        out.push_back('0');
    return out;
}

bool isValBlank(QChar c) {
    return c == QChar(' ') || c == QChar('\t') || c == QChar('\n') || c == QChar('\r');
}

} // namespace

bool IsNumericText(const QString& text) {
    bool ok = false;
    NumberFromText(text, &ok);
    return ok;
}

double NumberFromText(const QString& text, bool* ok) {
    bool parsed = false;
    const std::string normal = normalisedNumber(text);
    double value = normal.empty() ? 0.0 : parseCLocale(normal, &parsed);
    if (!parsed)
        value = 0.0;
    if (ok)
        *ok = parsed;
    return value;
}

double RateFromText(const QString& text, bool baseIsEuro) {
    const double rate = NumberFromText(text);
    if (rate > 0 && baseIsEuro)
        return 1.0 / rate;
    return rate;
}

double ValDot(const QString& text) {
    QString t = text;
    t.replace(QChar(','), QChar('.'));
    const int n = static_cast<int>(t.size());
    int i = 0;
    auto skipBlanks = [&] {
        while (i < n && isValBlank(t.at(i)))
            ++i;
    };
    std::string out;
    skipBlanks();
    if (i < n && (t.at(i) == QChar('-') || t.at(i) == QChar('+'))) {
        if (t.at(i) == QChar('-'))
            out.push_back('-');
        ++i;
    }
    bool digits = false;
    bool point = false;
    for (;; ++i) {
        skipBlanks();
        if (i >= n)
            break;
        const QChar c = t.at(i);
        if (isAsciiDigit(c)) {
            out.push_back(static_cast<char>(c.unicode()));
            digits = true;
        } else if (c == QChar('.') && !point) {
            point = true;
            out.push_back('.');
        } else {
            break;
        }
    }
    if (!digits)
        return 0.0;
    if (out.back() == '.')
        out.pop_back();
    // An exponent only when the marker is followed by (blanks and) a signed digit run.
    if (i < n) {
        const QChar m = t.at(i).toUpper();
        if (m == QChar('E') || m == QChar('D')) {
            int j = i + 1;
            std::string exp = "e";
            while (j < n && isValBlank(t.at(j)))
                ++j;
            if (j < n && (t.at(j) == QChar('-') || t.at(j) == QChar('+')))
                exp.push_back(static_cast<char>(t.at(j++).unicode()));
            bool expDigits = false;
            for (; j < n; ++j) {
                if (isValBlank(t.at(j)))
                    continue;
                if (!isAsciiDigit(t.at(j)))
                    break;
                exp.push_back(static_cast<char>(t.at(j).unicode()));
                expDigits = true;
            }
            if (expDigits)
                out += exp;
        }
    }
    bool ok = false;
    return parseCLocale(out, &ok);
}

QString FirstWord(const QString& text) {
    int start = 0;
    int end = static_cast<int>(text.size());
    while (start < end && text.at(start) == QChar(' '))
        ++start;
    while (end > start && text.at(end - 1) == QChar(' '))
        --end;
    const QString trimmed = text.mid(start, end - start);
    const qsizetype blank = trimmed.indexOf(QChar(' '));
    return blank < 0 ? trimmed : trimmed.left(blank);
}

int FilterNumericKey(int keyCode, const QString& currentText) {
    if ((keyCode >= '0' && keyCode <= '9') || keyCode == 8)
        return keyCode;
    if (keyCode == '.')
        return ',';
    if (keyCode == ',')
        return currentText.contains(QChar(',')) ? 0 : ',';
    return 0;
}

QString FormatNumberLt(double value, int places, bool groupDigits) {
    const std::string plain = RoundedDecimalText(value, places, TieRule::AwayFromZero);
    if (plain.empty())
        return QString();
    const bool negative = plain.front() == '-';
    const size_t intStart = negative ? 1 : 0;
    const size_t point = plain.find('.');
    const size_t intEnd = point == std::string::npos ? plain.size() : point;
    QString text;
    text.reserve(static_cast<qsizetype>(plain.size() + plain.size() / 3 + 1));
    if (negative)
        text.append(QChar('-'));
    for (size_t k = intStart; k < intEnd; ++k) {
        const size_t left = intEnd - k;
        if (groupDigits && k > intStart && left % 3 == 0)
            text.append(QChar(ThousandsSeparator));
        text.append(QChar(plain[k]));
    }
    if (point != std::string::npos) {
        text.append(QChar(DecimalMark));
        text.append(QString::fromLatin1(plain.data() + point + 1,
                                        static_cast<qsizetype>(plain.size() - point - 1)));
    }
    return text;
}

QString FormatAmount(double value) {
    if (value > -0.01 && value < 0.01)
        return QStringLiteral(" ");
    return FormatNumberLt(value + BaseSumAddend, 2);
}

QString FormatTypedNumber(const QString& text, int places, bool format) {
    if (text.isEmpty() || text.size() >= 15)
        return text;
    if (!isAsciiDigit(text.back()))
        return text;
    bool ok = false;
    const double value = NumberFromText(text, &ok);
    if (!ok)
        return text;
    return format ? FormatNumberLt(value, places, false) : QString();
}

} // namespace orvo

#include "core/rounding.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace orvo {

namespace {

// A double as decimal digits: value = 0.digits * 10^pointPos, sign apart.
struct DecimalDigits {
    bool negative = false;
    std::string digits; // no leading zero unless the value is zero ("0")
    int pointPos = 0;   // digits before the decimal point; may be <= 0 or > digits.size()
};

DecimalDigits toDecimal(double value) {
    // The shortest text that reads back to the same double: the decimal the value
    // stands for, as it was typed or as it prints.
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
    const std::string_view text(buf, static_cast<size_t>(res.ptr - buf));
    DecimalDigits d;
    size_t i = 0;
    if (i < text.size() && text[i] == '-') {
        d.negative = true;
        ++i;
    }
    for (; i < text.size() && text[i] != 'e'; ++i) {
        if (text[i] != '.')
            d.digits.push_back(text[i]);
    }
    int exponent = 0;
    if (i < text.size()) {
        ++i; // 'e'
        if (i < text.size() && text[i] == '+')
            ++i;
        std::from_chars(text.data() + i, text.data() + text.size(), exponent);
    }
    d.pointPos = exponent + 1;
    return d;
}

// Adds one unit in the last place of a digit string ("199" -> "200", "" -> "1").
void incrementDigits(std::string& digits) {
    for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
        if (*it != '9') {
            ++*it;
            return;
        }
        *it = '0';
    }
    digits.insert(digits.begin(), '1');
}

// Rounds to `places` decimals. The result is the integer `kept` (a digit string) times
// 10^-places. Returns false when no digit had to be dropped, i.e. the value already has
// at most `places` decimals.
bool roundDigits(const DecimalDigits& d, int places, TieRule tie, std::string* kept) {
    const long keep = static_cast<long>(d.pointPos) + places;
    const long n = static_cast<long>(d.digits.size());
    if (keep >= n) {
        *kept = d.digits + std::string(static_cast<size_t>(keep - n), '0');
        return false;
    }
    if (keep < 0) {
        // Below a tenth of the last kept place: nothing of it survives.
        kept->clear();
        return true;
    }
    *kept = d.digits.substr(0, static_cast<size_t>(keep));
    const char next = d.digits[static_cast<size_t>(keep)];
    const bool restNonZero =
        std::any_of(d.digits.begin() + keep + 1, d.digits.end(), [](char c) { return c != '0'; });
    bool up = false;
    if (next > '5' || (next == '5' && restNonZero)) {
        up = true;
    } else if (next == '5') {
        const bool lastOdd = !kept->empty() && ((kept->back() - '0') % 2 == 1);
        up = tie == TieRule::AwayFromZero || lastOdd;
    }
    if (up)
        incrementDigits(*kept);
    return true;
}

double powerOfTen(int places) {
    // Exact powers of ten as doubles; beyond 10^22 a double cannot hold them exactly.
    static constexpr double table[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (places >= 0 && places <= 22)
        return table[places];
    return std::pow(10.0, places);
}

} // namespace

double Round(double value, int places) {
    if (!std::isfinite(value))
        return value;
    places = std::max(places, 0);
    const DecimalDigits d = toDecimal(value);
    std::string kept;
    if (!roundDigits(d, places, TieRule::ToEven, &kept))
        return value;
    if (kept.empty() || kept.find_first_not_of('0') == std::string::npos)
        return 0.0;
    // kept * 10^-places, read back as the nearest double.
    std::string text;
    if (d.negative)
        text.push_back('-');
    text += kept;
    text += "e-";
    text += std::to_string(places);
    double result = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

double RoundHalfUp(double value, int places) {
    const double scale = powerOfTen(places);
    return std::floor(value * scale + 0.5) / scale;
}

double RoundSum(double value, bool fourPlaces) {
    return Round(value + 0.0000001, fourPlaces ? 4 : 2);
}

double RoundBaseSum(double value) {
    return Round(value + BaseSumAddend, 2);
}

std::string RoundedDecimalText(double value, int places, TieRule tie) {
    if (!std::isfinite(value))
        return std::string();
    places = std::clamp(places, 0, 40);
    const DecimalDigits d = toDecimal(value);
    std::string kept;
    roundDigits(d, places, tie, &kept);
    // At least one integer digit in front of the decimals.
    if (kept.size() < static_cast<size_t>(places) + 1)
        kept.insert(0, static_cast<size_t>(places) + 1 - kept.size(), '0');
    const size_t intLen = kept.size() - static_cast<size_t>(places);
    const size_t firstNonZero = kept.find_first_not_of('0');
    std::string text;
    if (d.negative && firstNonZero != std::string::npos)
        text.push_back('-');
    const size_t intStart = std::min(firstNonZero, intLen - 1);
    text.append(kept, intStart, intLen - intStart);
    if (places > 0) {
        text.push_back('.');
        text.append(kept, intLen, std::string::npos);
    }
    return text;
}

} // namespace orvo

#include "host/storage/money.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace orvo::host {

namespace {
void SetOk(bool* ok, bool v) {
    if (ok)
        *ok = v;
}
} // namespace

qint64 Money::ToCents(double amount, bool* ok) {
    SetOk(ok, false);
    // 9.2e16 hundredths is the end of qint64; far beyond any amount, but checked.
    if (!std::isfinite(amount) || std::fabs(amount) >= 9.0e16)
        return 0;
    // The shortest fixed-notation decimal that reads back as the same double.
    // The longest such text (the smallest subnormal) is about 330 characters.
    char buffer[400];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, amount, std::chars_format::fixed);
    if (error != std::errc())
        return 0;
    const char* p = buffer;
    bool negative = false;
    if (p < end && *p == '-') {
        negative = true;
        ++p;
    }
    qint64 whole = 0;
    while (p < end && *p != '.') {
        whole = whole * 10 + (*p - '0');
        ++p;
    }
    int fraction[3] = {0, 0, 0};
    if (p < end && *p == '.') {
        ++p;
        for (int i = 0; i < 3 && p < end; ++i, ++p)
            fraction[i] = *p - '0';
    }
    qint64 cents = whole * 100 + fraction[0] * 10 + fraction[1];
    if (fraction[2] >= 5)
        ++cents; // half away from zero: the magnitude grows
    SetOk(ok, true);
    return negative ? -cents : cents;
}

double Money::FromCents(qint64 cents) {
    return static_cast<double>(cents) / 100.0;
}

Value Money::CentsValue(qint64 cents) {
    if (cents >= std::numeric_limits<qint32>::min() && cents <= std::numeric_limits<qint32>::max())
        return Value(static_cast<qint32>(cents));
    return Value(static_cast<double>(cents));
}

qint64 Money::CentsFromValue(const Value& value, bool* ok) {
    SetOk(ok, true);
    switch (value.kind()) {
    case Value::Kind::Int16:
        return value.toInt16();
    case Value::Kind::Int32:
        return value.toInt32();
    case Value::Kind::Double: {
        const double d = value.toDouble();
        if (std::isfinite(d) && d == std::trunc(d) && std::fabs(d) < 9.2e18)
            return static_cast<qint64>(d);
        break;
    }
    default:
        break;
    }
    SetOk(ok, false);
    return 0;
}

Value Money::AmountFromValue(const Value& value) {
    if (value.isNull())
        return Value();
    bool ok = false;
    const qint64 cents = CentsFromValue(value, &ok);
    return ok ? Value(FromCents(cents)) : Value();
}

} // namespace orvo::host

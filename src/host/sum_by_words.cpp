#include "host/sum_by_words.h"

#include "core/rounding.h"

#include <QStringList>

#include <array>
#include <cmath>

namespace orvo::host {

namespace {

const std::array<const char*, 10> kUnits = {"",      "vienas", "du",      "trys",    "keturi",
                                            "penki", "šeši",   "septyni", "aštuoni", "devyni"};
const std::array<const char*, 10> kTeens = {
    "dešimt",     "vienuolika", "dvylika",      "trylika",      "keturiolika",
    "penkiolika", "šešiolika",  "septyniolika", "aštuoniolika", "devyniolika"};
const std::array<const char*, 10> kTens = {"",
                                           "",
                                           "dvidešimt",
                                           "trisdešimt",
                                           "keturiasdešimt",
                                           "penkiasdešimt",
                                           "šešiasdešimt",
                                           "septyniasdešimt",
                                           "aštuoniasdešimt",
                                           "devyniasdešimt"};

constexpr qint64 kLimit = 1000000000000LL; // first amount that has no words here

// The three forms of a noun after a number: 1, 2..9, and 0/10..19/tens.
struct NounForms {
    const char* singular;
    const char* plural;
    const char* genitivePlural;
};

const NounForms kThousand = {"tūkstantis", "tūkstančiai", "tūkstančių"};
const NounForms kMillion = {"milijonas", "milijonai", "milijonų"};
const NounForms kBillion = {"milijardas", "milijardai", "milijardų"};

QString formFor(qint64 n, const NounForms& forms) {
    const qint64 lastTwo = n % 100;
    const qint64 last = n % 10;
    if (last == 0 || (lastTwo >= 10 && lastTwo <= 19))
        return QString::fromUtf8(forms.genitivePlural);
    if (last == 1)
        return QString::fromUtf8(forms.singular);
    return QString::fromUtf8(forms.plural);
}

// 1..999 in words.
void appendGroup(int n, QStringList* words) {
    const int hundreds = n / 100;
    const int rest = n % 100;
    if (hundreds == 1)
        words->append(QStringLiteral("vienas šimtas"));
    else if (hundreds > 1)
        words->append(QString::fromUtf8(kUnits[hundreds]) + QStringLiteral(" šimtai"));
    if (rest >= 20) {
        words->append(QString::fromUtf8(kTens[rest / 10]));
        if (rest % 10)
            words->append(QString::fromUtf8(kUnits[rest % 10]));
    } else if (rest >= 10) {
        words->append(QString::fromUtf8(kTeens[rest - 10]));
    } else if (rest > 0) {
        words->append(QString::fromUtf8(kUnits[rest]));
    }
}

// The currency's forms, or null for a code written as it stands.
const NounForms* currencyForms(const QString& code) {
    static const NounForms euro = {"euras", "eurai", "eurų"};
    static const NounForms litas = {"litas", "litai", "litų"};
    static const NounForms dollar = {"JAV doleris", "JAV doleriai", "JAV dolerių"};
    static const NounForms pound = {"svaras sterlingų", "svarai sterlingų", "svarų sterlingų"};
    if (code == QLatin1String("EUR"))
        return &euro;
    if (code == QLatin1String("LTL") || code == QLatin1String("LT"))
        return &litas;
    if (code == QLatin1String("USD"))
        return &dollar;
    if (code == QLatin1String("GBP"))
        return &pound;
    return nullptr;
}

// Whole cents of the sum rounded by the base-sum rule.
bool roundToCents(double sum, qint64* cents) {
    if (!std::isfinite(sum))
        return false;
    const double scaled = std::nearbyint(RoundBaseSum(sum) * 100.0);
    if (!std::isfinite(scaled) || std::fabs(scaled) >= double(kLimit) * 100.0)
        return false;
    *cents = static_cast<qint64>(scaled);
    return true;
}

} // namespace

QString NumberInWords(qint64 number) {
    if (number < 0 || number >= kLimit)
        return QString();
    if (number == 0)
        return QStringLiteral("nulis");
    QStringList words;
    const struct {
        qint64 size;
        const NounForms* forms;
    } scales[] = {{1000000000LL, &kBillion}, {1000000LL, &kMillion}, {1000LL, &kThousand}};
    qint64 rest = number;
    for (const auto& scale : scales) {
        const qint64 group = rest / scale.size;
        rest %= scale.size;
        if (group > 0) {
            appendGroup(int(group), &words);
            words.append(formFor(group, *scale.forms));
        }
    }
    if (rest > 0)
        appendGroup(int(rest), &words);
    return words.join(QChar(' '));
}

QString SumByWords(double sum, const QString& currencyCode, const QString& baseCurrency) {
    qint64 cents = 0;
    if (!roundToCents(sum, &cents))
        return QString();
    const bool negative = cents < 0;
    if (negative)
        cents = -cents;
    const qint64 whole = cents / 100;
    const int hundredths = int(cents % 100);

    QString code = currencyCode.trimmed().toUpper();
    if (code.isEmpty())
        code = baseCurrency.trimmed().toUpper();
    const NounForms* forms = currencyForms(code);
    const QString noun = forms ? formFor(whole, *forms) : code;

    QString text = NumberInWords(whole);
    if (negative)
        text = QStringLiteral("minus ") + text;
    if (!noun.isEmpty())
        text += QChar(' ') + noun;
    text += QStringLiteral(" %1 ct").arg(hundredths, 2, 10, QChar('0'));
    text[0] = text.at(0).toUpper();
    return text;
}

} // namespace orvo::host

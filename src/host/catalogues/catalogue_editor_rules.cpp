#include "host/catalogues/catalogue_editor_rules.h"

#include "core/number_text.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

#include <QHash>

namespace orvo::host {

namespace {

// The lengths of IBANs of the countries whose accounts a Lithuanian firm meets most.
int ibanLengthOf(const QString& country) {
    static const QHash<QString, int> lengths = {
        {QStringLiteral("LT"), 20}, {QStringLiteral("LV"), 21}, {QStringLiteral("EE"), 20},
        {QStringLiteral("PL"), 28}, {QStringLiteral("DE"), 22}, {QStringLiteral("GB"), 22},
        {QStringLiteral("FI"), 18}, {QStringLiteral("SE"), 24}, {QStringLiteral("NO"), 15},
        {QStringLiteral("DK"), 18}, {QStringLiteral("FR"), 27}, {QStringLiteral("NL"), 18},
        {QStringLiteral("BE"), 16}, {QStringLiteral("IT"), 27}, {QStringLiteral("ES"), 24},
        {QStringLiteral("AT"), 20}, {QStringLiteral("CH"), 21}, {QStringLiteral("IE"), 22},
        {QStringLiteral("CZ"), 24}, {QStringLiteral("SK"), 24}, {QStringLiteral("LU"), 20}};
    return lengths.value(country, 0);
}

bool isLatinLetter(QChar c) {
    return c >= QLatin1Char('A') && c <= QLatin1Char('Z');
}

bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

QString blank(const FieldText& field, const char* name) {
    return field(QString::fromLatin1(name)).trimmed();
}

QString bankAccountRefusal(const FieldText& field) {
    if (blank(field, "OwnerOIDR").isEmpty())
        return QStringLiteral("Nurodykite, kam priklauso banko sąskaita.");
    const QString number = NormalizedAccountNumber(field(QStringLiteral("AccountNumber")));
    if (number.isEmpty())
        return QStringLiteral("Įveskite banko sąskaitos numerį.");
    switch (CheckIban(number)) {
    case IbanState::NotIban:
    case IbanState::Valid:
        return QString();
    case IbanState::BadLength:
        return QStringLiteral("Sąskaitos numerio %1 ilgis netinka šalies %2 IBAN numeriui.")
            .arg(number, number.left(2));
    case IbanState::BadCharacters:
        return QStringLiteral(
                   "Sąskaitos numeryje %1 gali būti tik lotyniškos raidės ir skaitmenys.")
            .arg(number);
    case IbanState::BadCheckDigits:
        return QStringLiteral("Sąskaitos numerio %1 kontroliniai skaitmenys neteisingi: "
                              "patikrinkite, ar numeris įvestas be klaidų.")
            .arg(number);
    }
    return QString();
}

QString currencyRefusal(const FieldText& field) {
    const QString code = blank(field, "Code");
    bool letters = code.size() == 3;
    for (const QChar c : code)
        letters = letters && isLatinLetter(c.toUpper());
    if (!letters)
        return QStringLiteral("Valiutos kodas turi būti trys lotyniškos raidės (pvz., USD).");
    if (blank(field, "Name").isEmpty())
        return QStringLiteral("Įveskite valiutos pavadinimą.");
    if (NumberFromText(field(QStringLiteral("FixedRate"))) < 0)
        return QStringLiteral("Pastovus valiutos kursas negali būti neigiamas.");
    return QString();
}

} // namespace

QString NormalizedAccountNumber(const QString& number) {
    QString out;
    for (const QChar c : number)
        if (!c.isSpace())
            out.append(c.toUpper());
    return out;
}

IbanState CheckIban(const QString& number) {
    const QString iban = NormalizedAccountNumber(number);
    if (iban.size() < 2 || !iban.at(0).isLetter() || !iban.at(1).isLetter())
        return IbanState::NotIban;
    for (const QChar c : iban)
        if (!isLatinLetter(c) && !isDigit(c))
            return IbanState::BadCharacters;
    const int expected = ibanLengthOf(iban.left(2));
    if ((expected > 0 && iban.size() != expected) || iban.size() < 15 || iban.size() > 34)
        return IbanState::BadLength;
    if (!isDigit(iban.at(2)) || !isDigit(iban.at(3)))
        return IbanState::BadCheckDigits;
    // The country and check digits go to the end, each letter becomes two digits (A is
    // 10), and the remainder by 97 of the whole must be 1; it is taken digit by digit.
    const QString moved = iban.mid(4) + iban.left(4);
    int remainder = 0;
    for (const QChar c : moved) {
        if (isDigit(c)) {
            remainder = (remainder * 10 + (c.unicode() - '0')) % 97;
        } else {
            const int value = c.unicode() - 'A' + 10;
            remainder = (remainder * 100 + value) % 97;
        }
    }
    return remainder == 1 ? IbanState::Valid : IbanState::BadCheckDigits;
}

QString CatalogueRecordRefusal(const QString& code, const FieldText& field) {
    const QString kind = code.left(8);
    if (kind == kinds::Firm) {
        if (blank(field, "Name").isEmpty())
            return QStringLiteral("Įveskite įmonės pavadinimą.");
    } else if (kind == kinds::Person || kind == kinds::Employee) {
        if (blank(field, "Name").isEmpty() || blank(field, "LastName").isEmpty())
            return QStringLiteral("Įveskite asmens vardą ir pavardę.");
    } else if (kind == kinds::Bank) {
        if (blank(field, "Name").isEmpty())
            return QStringLiteral("Įveskite banko pavadinimą.");
    } else if (kind == kinds::BankAccount) {
        return bankAccountRefusal(field);
    } else if (kind == kinds::Currency) {
        return currencyRefusal(field);
    } else if (kind == kinds::User) {
        if (blank(field, "Code").isEmpty())
            return QStringLiteral("Įveskite naudotojo prisijungimo vardą.");
        if (blank(field, "Name").isEmpty())
            return QStringLiteral("Įveskite naudotojo vardą.");
    }
    return QString();
}

QString RateTextRefusal(const QString& text) {
    bool ok = false;
    const double rate = NumberFromText(text, &ok);
    if (!ok || !(rate > 0))
        return QStringLiteral("Kursas turi būti teigiamas skaičius, pvz., 1,0875.");
    return QString();
}

} // namespace orvo::host

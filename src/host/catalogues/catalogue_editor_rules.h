// The checks a catalogue record must pass before it is stored, apart from storage: a
// name that is not empty, a three-letter currency code, an owner and a number for a
// bank account with IBAN check digits that add up, a rate that is a positive number.
// The editors ask them to warn before saving, and the object store asks them again so
// that no other road stores a record that breaks them. Each answers the text the user
// is shown, or an empty text when the record passes.
#pragma once

#include <QString>
#include <functional>

namespace orvo::host {

// What an account number is as an IBAN.
enum class IbanState { NotIban, Valid, BadLength, BadCharacters, BadCheckDigits };

// The account number without blanks, in capitals: how it is stored.
QString NormalizedAccountNumber(const QString& number);
// A number that begins with two letters is an IBAN and is checked as one: its length
// for the country (15 to 34 characters for a country not in the table), letters and
// digits only, and the remainder 1 of the check by 97. A number of digits only is an
// account number of the old local form and is not an IBAN.
IbanState CheckIban(const QString& number);

// The refusal of a record of the kind `code`; `field` gives a field's value as text.
using FieldText = std::function<QString(const QString& name)>;
QString CatalogueRecordRefusal(const QString& code, const FieldText& field);

// The refusal of a typed rate: it must be a number above zero.
QString RateTextRefusal(const QString& text);

} // namespace orvo::host

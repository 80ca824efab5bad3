// Numbers as the users of the system type and read them. The users are Lithuanian: a
// comma is the decimal mark (a dot is accepted as one too), and a blank groups the
// thousands ("1 234 567,50"). The blank is the plain space U+0020, the character a user
// can type and that every reader here skips; U+00A0 and U+202F, which other programs
// put between thousands, are skipped on reading as well. Also here: the cell format of
// the lists, the tolerant readers of typed numbers and rates, and the key filter of the
// number fields.
#pragma once

#include <QString>

namespace orvo {

inline constexpr char16_t DecimalMark = u',';
inline constexpr char16_t ThousandsSeparator = u' ';

// True when the whole text, trimmed and with its blanks removed, is one number: an
// optional sign, digits with at most one decimal mark ("," or "."), an optional
// exponent ("1,5e3"). "1.234,56" has two marks and is not a number.
bool IsNumericText(const QString& text);

// The number in the text as a Lithuanian user means it ("1 234,56" is 1234.56); text
// that is not a number gives 0 and, when given, `ok` false.
double NumberFromText(const QString& text, bool* ok = nullptr);

// A typed rate: NumberFromText, then, under a euro base, a positive rate (typed as
// foreign units per euro) becomes its reciprocal, the base currency per foreign unit.
// Zero and negative rates come back as they are; non-numeric text is 0.
double RateFromText(const QString& text, bool baseIsEuro);

// The plain number reader applied after every "," became ".": the number at the start
// of the text, ignoring what follows ("1,5 Eur" is 1.5). Blanks, tabs and line breaks
// are skipped anywhere, as that reader does ("1 234" is 1234); a sign may lead; an
// exponent counts only when "E" or "D" is followed by digits. No number gives 0.
double ValDot(const QString& text);

// The text trimmed of blanks, cut before its first blank: "2410 Pirkėjų skolos" gives
// "2410", so a combo can hold an account and its name at once.
QString FirstWord(const QString& text);

// The key a number field keeps, or 0 to drop it: digits (48..57) and backspace (8) pass,
// "." (46) becomes "," (44), "," passes only while `currentText` has none.
int FilterNumericKey(int keyCode, const QString& currentText);

// `value` rounded to `places` decimals (a half goes away from zero, as the number format
// does) with a decimal comma and, when `groupDigits`, a blank between thousands:
// FormatNumberLt(1234567.5, 2) == "1 234 567,50", FormatNumberLt(-1234, 2) == "-1 234,00".
// Zero has no sign. NaN and infinities give an empty text.
QString FormatNumberLt(double value, int places, bool groupDigits = true);

// A sum in a list cell: value + 0.00001 in the two-place number format; a value strictly
// between -0.01 and 0.01 gives a single blank (the bound itself, -0.01, is a number).
QString FormatAmount(double value);

// A number field being left. Text of 15 characters or more, empty text, text that is not
// a number, or text whose last character is not a digit (a trailing "," included) comes
// back as it is, so the user can go on typing. Otherwise, with `format` on, the number in
// the number format of `places` decimals, without thousands blanks so that the field
// keeps only what the key filter lets a user type ("1234,5" -> "1234,50"); with `format`
// off the empty text.
QString FormatTypedNumber(const QString& text, int places = 2, bool format = true);

} // namespace orvo

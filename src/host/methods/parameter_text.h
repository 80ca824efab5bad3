// ParameterText reads the parameter text that the accounting component hands to the
// business object together with a method name, and writes such texts for callers.
//
// Three syntaxes are in use, and each method declares the one it takes:
// - Quoted (almost every method): values in single quotes, a quote inside a value
//   doubled (''), commas between values with blanks around them allowed, numbers
//   unquoted (12, -3, 0.5, 1E-05), the words True and False unquoted. "None" and the
//   empty text mean no values. Example: '0','2710','2024.03.15','O0000100123',-1
// - Semicolon: the values joined by ";" as they stand, nothing unquoted inside, blanks
//   kept (three blanks are a currency code). The whole text may be wrapped in one pair
//   of quotes; they are removed before splitting. Example: 17;abc or '17;abc'
// - Whole: the text is one value as it stands (an account number, a currency code, a
//   reference), or one quoted value whose quotes are removed. Example: 2710 or 'USD'
// In every syntax "None" and the empty text mean no values.
//
// Values come back as texts with the position where each starts; a quoted
// '2024.03.15' stays a text here, and reading values as numbers or dates is the
// registry's job. Parse never throws and accepts any input: a text it cannot read
// gives a non-zero Code and a Text that names the 1-based position of the fault.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

enum class ParameterSyntax { Quoted, Semicolon, Whole };

struct ParameterToken {
    // Quoted: written in quotes. Number: an unquoted number. Bare: an unquoted word
    // (True/False in the Quoted syntax, any piece in the other two).
    enum class Kind { Quoted, Number, Bare };

    Kind kind = Kind::Quoted;
    QString text;     // the value, with doubled quotes already undone
    int position = 0; // 1-based position of the value's first character in the text
};

struct ParsedParameters {
    qint32 Code = 0;
    QString Text;
    QVector<ParameterToken> values;

    bool ok() const { return Code == 0; }
};

class ParameterText {
public:
    static ParsedParameters Parse(const QString& text,
                                  ParameterSyntax syntax = ParameterSyntax::Quoted);

    // One value in quotes with every quote inside doubled: O'Brien -> 'O''Brien'.
    static QString Quote(const QString& value);
    // Values quoted and joined by commas, or "None" when there are none.
    static QString Join(const QStringList& values);

    static QString SyntaxName(ParameterSyntax syntax);
};

} // namespace orvo::host

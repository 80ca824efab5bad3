// MethodArguments are the typed parameters a method's handler receives: the values of
// the parameter text read as the kinds its registration declares, reachable by
// position or by name, and the data handed in on entry (what a storing method
// stores). Bind builds them from a parameter text and refuses a wrong count or a
// value of the wrong kind with a text the user can act on.
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

struct MethodDefinition;

class MethodArguments {
public:
    MethodArguments() = default;

    // Reads `parameterText` for `method`: parses it in the method's syntax, checks the
    // count and reads every value as its kind. On failure the result has a non-zero
    // Code and a Text that begins "Metodas <name>: "; `out` is then left untouched.
    static ResultRecord Bind(const MethodDefinition& method, const QString& parameterText,
                             const Value& input, MethodArguments* out);

    // Declared parameters, in order; a left-out optional one holds its default and a
    // repeated one an array of its values.
    int Count() const { return values_.size(); }
    const Value& At(int index) const;
    Value Get(const QString& name) const;
    // Whether the text gave a value for the parameter (not a default).
    bool IsGiven(const QString& name) const;
    // How many values the parameter text held.
    int GivenCount() const { return givenCount_; }

    QString Text(const QString& name) const { return Get(name).toString(); }
    qint32 Integer(const QString& name) const { return Get(name).toInt32(); }
    double Number(const QString& name) const { return Get(name).toDouble(); }
    QDate Date(const QString& name) const { return Get(name).toDate(); }
    bool Boolean(const QString& name) const { return Get(name).toBool(); }
    const ValueArray& Array(const QString& name) const;

    // The data handed in with the call (BOResult::Data on entry to Run).
    const Value& Input() const { return input_; }

    // For building arguments directly, as a method that calls another might.
    void Append(const QString& name, const Value& value, bool given = true);
    void SetInput(const Value& input) { input_ = input; }

private:
    int indexOf(const QString& name) const;

    QStringList names_;
    QVector<Value> values_;
    QVector<bool> given_;
    int givenCount_ = 0;
    Value input_;
};

} // namespace orvo::host

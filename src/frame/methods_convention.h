// The rules every data object's Methods follows: parameters come by position in an
// array, and a command given too few or too many of them answers Code 777 with the
// text "Method " + command + ":" + line break + "Klaidingi parametrai !". The line
// break is "\n" throughout the component, so a message box shows the text on two lines
// on every platform.
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QString>

namespace orvo {

class MethodsConvention {
public:
    // The line break inside the component's multi-line texts.
    static QString LineBreak() { return QStringLiteral("\n"); }

    // "Method <command>:\nKlaidingi parametrai !"
    static QString WrongParametersText(const QString& command);
    // Code 777, that text, no value.
    static ValueResult WrongParameters(const QString& command);

    // Whether the number of parameters lies within [minCount, maxCount]; a negative
    // maxCount means no upper bound.
    static bool CountIn(const ValueArray& parameters, int minCount, int maxCount);
    static bool CountIs(const ValueArray& parameters, int count) {
        return CountIn(parameters, count, count);
    }

    // The parameter at a position, Null past the end.
    static Value At(const ValueArray& parameters, int position);

    // What a command name that the object does not know answers: Code 999 and a text
    // that names it, so that a caller never takes it for a success.
    static ValueResult UnknownCommand(const QString& command);
};

} // namespace orvo

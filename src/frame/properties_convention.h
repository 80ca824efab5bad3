// The way every data object sorts a Properties name, kept in one place:
//  1. a name on the list of plain queries goes to the business object as "Get" + name
//     with the parameter text "None";
//  2. a name on the list of parametrised queries goes as "Get" + name with the caller's
//     parameter text unchanged;
//  3. names the class serves itself are the class's business and never reach here;
//  4. any other name goes to the business object as it stands, so that a caller can
//     name a method directly ("DO0201500_GetOrvoObject").
// A business object answer with a non-zero Code shows a warning box with its Text and
// comes back with that Code and Text and no value; success gives Data as the value.
#pragma once

#include "core/results.h"
#include "frame/business_object.h"

#include <QSet>
#include <QString>
#include <QStringList>

namespace orvo {

class PropertiesConvention {
public:
    enum class Path { Plain, Parametrised, Direct };

    PropertiesConvention() = default;
    PropertiesConvention(const QStringList& plainQueries, const QStringList& parametrisedQueries);

    Path Classify(const QString& name) const;
    // The business object's method and parameter text for a name (paths 1, 2 and 4).
    QString MethodFor(const QString& name) const;
    QString ParameterTextFor(const QString& name, const QString& parameters) const;

    // Runs the query through `bo` and applies the warning rule.
    ValueResult Query(BusinessObject* bo, const QString& name, const QString& parameters) const;

    // The warning rule alone, for the names a class serves itself: shows `text` as a
    // warning and returns the code and text with no value.
    static ValueResult Refuse(qint32 code, const QString& text);

private:
    QSet<QString> plain_;
    QSet<QString> parametrised_;
};

} // namespace orvo

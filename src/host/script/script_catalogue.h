// ScriptCatalogue lets a script call the shared routines of the component (rounding,
// number and date texts, kind titles, null-safe readers, and the Catalogue routines that
// ask the session: base currency, rates, rights, addressee titles, sums in words) by
// name, with its parameters as values. Each routine has a small adapter that checks the
// count and kind of its parameters and turns the routine's answer into a value, so a
// script sees exactly what an editor would get from the same call.
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QString>
#include <QStringList>

namespace orvo::host {

struct CatalogueRoutine {
    QString Name;
    // The parameters as a reader sees them: "FormatAmount(Value)".
    QString Signature;
    // What the routine gives, in one line.
    QString Doc;
};

class ScriptCatalogue {
public:
    // Calls the routine of that name (exact spelling). A wrong count or kind of
    // parameter, or an unknown name, is a failure with a Lithuanian text and no value.
    static ValueResult Call(const QString& name, const ValueArray& parameters);
    static bool Has(const QString& name);
    // Every routine, in alphabetical order.
    static QList<CatalogueRoutine> Routines();
};

} // namespace orvo::host

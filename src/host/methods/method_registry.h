// MethodRegistry holds every business-object method the host offers, by name. Names
// are matched exactly, case included: the component always spells a method the same
// way, and a tolerant match would hide a misspelt caller until it met a second method
// of the same letters. For the same reason a name that differs from a registered one
// only in case is refused at registration.
//
// The registry also describes itself, as a text for the command line and as a
// recordset for the GetMethodList method.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "host/methods/method_definition.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

class MethodRegistry {
public:
    // Adds a method. Refused (non-zero Code, nothing added) when the name is empty or
    // taken (in any case), the handler is missing, a parameter has no name or a name
    // used twice, a required parameter follows an optional one, a repeated parameter
    // is not the last or is also optional, or a Whole-syntax method has more than one
    // parameter.
    ResultRecord Register(const MethodDefinition& method);

    // The method of exactly this name, or null.
    const MethodDefinition* Find(const QString& name) const;
    int Count() const { return methods_.size(); }
    // The names in alphabetical order.
    QStringList Names() const;

    // Every method, alphabetically: its signature, the syntax when not the quoted
    // one, the fields it returns and its documentation, as lines of text.
    QString Listing() const;
    // The same as a recordset with the fields Name, Parameters, Syntax, Fields, Doc.
    RecordsetPtr ListingRecordset() const;
    static FieldDefs ListingFields();

private:
    QVector<MethodDefinition> methods_;
    QHash<QString, int> byName_;      // exact name -> index
    QHash<QString, int> byLowerName_; // lower-cased name -> index, to refuse near-twins
};

} // namespace orvo::host

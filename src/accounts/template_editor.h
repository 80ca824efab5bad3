// TemplateEditor is what the editor of a template or template group (frmBRTemplate)
// knows and decides, apart from its widgets: the name, comment and group boxes, the
// entries as its list shows them, removing an entry with the addressees it demands,
// the group picked for it, the changed mark, saving ("Įrašyti") and reading again
// ("Atšaukti"). A refused save shows the returned text and "Įrašymas neatliktas !".
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo {

class TemplateEditor {
public:
    explicit TemplateEditor(OrvoObjectUIOPtr templateObject);

    ResultRecord Load();
    bool IsGroup() const { return isGroup_; }
    bool IsNew() const;

    QString Name, Comment;
    // The parent group's name, as txtGroup shows it.
    QString GroupText;

    // GUID, AccountD, AccountDMark, AccountDName, AccountC, ... Factor.
    RecordsetPtr Rows() const;

    // Removes the entry of that GUID and its rows of BRTemplateAddr.
    bool DeleteEntry(const QString& guid);
    // A group picked as "OIDR_text" becomes the parent; false for anything else.
    bool TakeGroup(const QString& picked);

    bool Changed() const { return changed_; }
    void MarkChanged() { changed_ = true; }

    // "Įrašyti": Name and Comment from the boxes, then the record is saved.
    ResultRecord Save();
    // "Atšaukti": the record is read again.
    ResultRecord Undo();

    const OrvoObjectUIOPtr& Object() const { return object_; }

private:
    OrvoObjectUIOPtr object_;
    bool isGroup_ = false;
    bool changed_ = false;
};

} // namespace orvo

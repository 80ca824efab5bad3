// CatalogueNavigator is the navigator of a catalogue kind whose records have an editor
// (firms, natural persons, employees, banks, bank accounts, currencies, users). Its
// menu follows the kind's rights (CatalogueRightKeyOf): on the kind's node a new
// record ("Nauja įmonė" ...) and, for firms, "Mano įmonė"; on a record "Atidaryti" and
// "Panaikinti". A click that opens (the menu's caption, or an activated row with no
// caption) answers Action 1 with the kind's form (CatalogueFormNameOf, or frmMyFirm)
// from the Forms service, bound to the record's data object; a deletion asks first and
// shows the host's refusal as an error.
#pragma once

#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"

namespace orvo::host {

class CatalogueNavigator : public OrvoObjectUIBase {
public:
    CatalogueNavigator(const QString& code, const QString& title);

    static const QString kOpen;
    static const QString kDelete;
    static const QString kOwnFirm;
    // The caption of a new record of the kind ("Nauja įmonė").
    static QString NewCaption(const QString& code);

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;

private:
    ClickResult showForm(const QString& formName, const OrvoObjectUIOPtr& object);
    QString code_;
};

// Registers a CatalogueNavigator for every kind that has an editor, replacing the plain
// navigator the host gives a catalogue.
void RegisterCatalogueNavigators(ObjectRegistry& registry = ObjectRegistry::Component());

} // namespace orvo::host

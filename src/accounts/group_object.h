// UIO0201400 is the data object of an operation group (object code O0201400, OID
// "O0201400" + ID): the folder of financial operations with the settings they inherit.
// Reading, saving and deleting go through the generic core to the business object's
// DO0201400_ methods.
//
// Read fills BROperGroupID with the record's ID (the name under which operations know
// their group), and gives a new group its defaults: ANDateFrom the first day of this
// year and the form type O0201500.
//
// Properties: Parent is the data object of the ParentID group (empty for a top group);
// FormTypes and MyFirmAccounts go to the business object as GetFormTypes and
// GetMyFirmAccounts with "None"; any other name goes as "DO0201400_Get" + name with the
// caller's parameters. PresetAccounts and AccountSettings asked without parameters read
// the record's own AccountCode, so a group's windows see the group's settings.
//
// Methods: FillTemplatesTrw(tree) fills a tree control with the group's templates
// (TemplateList of its template group) under the node "Operacijų šablonai :", the main
// template bold, every node expanded. Any other name goes to the core.
#pragma once

#include "frame/orvo_object_uio_base.h"
#include "frame/tree_control.h"

namespace orvo {

class UIO0201400 : public OrvoObjectUIOBase {
public:
    UIO0201400();

    static std::shared_ptr<UIO0201400> Create() { return std::make_shared<UIO0201400>(); }

    ResultRecord Read() override;
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

    // The data object of the stored group O0201400 + id, read; null when it is gone.
    OrvoObjectUIOPtr GroupObject(qint64 id) const;

    // The template group whose templates the group offers: BRTemplateID, or for the
    // form type O1000100 the first template named in Parameters.
    qint64 TemplateGroupID() const;

    // The caption of the tree's top node.
    static QString TemplatesCaption() { return QStringLiteral("Operacijų šablonai :"); }

protected:
    std::optional<ValueResult> OwnProperty(const QString& name, const QString& parameters) override;

private:
    ValueResult fillTemplatesTrw(const ValueArray& parameters);
};

} // namespace orvo

// UI0201600 is the navigator of operation templates: the node O0201600 of the host's
// tree and every template group and template below it (O0201600 + ID). It lists one
// node's records through DO0201600_GetOrvoObjectList (groups first, then by name),
// offers the menu of the root, of a group and of a template, and carries out the clicks:
// a new group, subgroup or template opened in the editor frmBRTemplate, the desktop,
// the printed list (the report ActRepTemplates over TemplatePrintRows), deleting a
// template or a group with all it holds, and the host's filter. Windows come from the
// Forms service by name; a face without them refuses clearly.
#pragma once

#include "frame/orvo_object_ui_base.h"

namespace orvo {

class UI0201600 : public OrvoObjectUIBase {
public:
    UI0201600();

    // Menu captions, as the host shows them and ClickMenu recognises them.
    static const QString kNewGroup;
    static const QString kDesktop;
    static const QString kNewSubgroup;
    static const QString kNewTemplate;
    static const QString kPrint;
    static const QString kDelete;
    static const QString kSelect;
    // What a click says when the window it needs is not available.
    static QString NoFormText(const QString& formName);

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;

protected:
    OrvoObjectUIOPtr NewDataObject(const QString& oid) override;

private:
    bool isGroup(const QString& oid, const QString& oType);
    ClickResult newRecord(const QString& oid, bool group);
    ClickResult openForm(const QString& formName, const OrvoObjectUIOPtr& object,
                         const QString& clicked);
    ClickResult remove(const QString& oid);
    ClickResult select(const QString& oid);
};

} // namespace orvo

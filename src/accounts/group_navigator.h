// UI0201400, the navigator of operation groups and the main menu of the accounting
// branch. Its nodes are the groups (general groups hold groups, operation groups hold
// operations); under a group it lists the groups below it and the group's operations
// dated within the period the host asks for. A node's menu is built from the rights of
// groups (CBROperGroupRights) and of the group's operations (CBROperRights + the
// group's number), from the group's kind and form type. A click makes a new group in
// its editor, hands the "new operation" captions to the operations navigator, opens
// the windows of settlement, currency and bank work through the Forms service (a
// window that is not available is refused with a clear text), puts a group on the
// desktop, and deletes a group after asking, saying "Grupė panaikinta!" when done.
#pragma once

#include "frame/orvo_object_ui_base.h"

namespace orvo {

class UI0201400 : public OrvoObjectUIBase {
public:
    UI0201400();

    static std::shared_ptr<UI0201400> Create() { return std::make_shared<UI0201400>(); }

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;
    // The groups under the node, then (for a group) its operations dated within the
    // period. From and To each hold a date of the period ("yyyy.MM.dd"), a position in
    // the list (a whole number from 1, which the tree gives to read a screen of rows),
    // or both as "yyyy.MM.dd;position"; a missing date is the earliest date in use for
    // From and "9999.12.31" for To, a missing position no bound on that side.
    RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from,
                                   const QString& to) override;
    // One side of the list's bounds as GetOrvoObjectList reads it.
    struct ListBound {
        QString Date;     // empty for none
        int Position = 0; // 0 for none
    };
    static ListBound ParseListBound(const QString& text);
    // With the right to delete groups; a refusal of the business object is shown.
    bool DeleteOrvoObject(const QString& oid) override;
    // The group's editor goes to the desktop.
    bool AddToDeskTopOrvoObject(const QString& oid) override;
    // Only a user who may change groups drags them.
    bool DragOK(const QString& oid) override;
    bool DropOK(const QString& sourceOid, const QString& targetOid) override;

    // The window a menu caption opens, empty when the caption opens none.
    static QString FormForCaption(const QString& caption);
    // The text of a click whose window is not available.
    static QString NoWindowText(const QString& formName);

private:
    ClickResult newGroup(const QString& oid, bool general);
    ClickResult openWindow(const QString& oid, const QString& formName);
    ClickResult hostOperation(const QString& name, const QString& oid);
    OrvoObjectUIOPtr group(const QString& oid);
};

} // namespace orvo

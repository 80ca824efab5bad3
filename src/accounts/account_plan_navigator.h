// UI0200400 is the navigator of the chart of accounts: the node O0200400 of the host's
// tree and every class, account and subaccount below it (O0200401 + ID). It lists the
// child rows of a node through DO0200400_GetOrvoObjectList, handing its plan mode as the
// list's filter when no positions are asked for; it offers the chart's menu by the
// rights of CAccountPlanRights, and carries out the clicks: new class, account or
// subaccount in the editor frmAccountPlan, moving an account one level down, printing
// (ActRepAccPlan), the plan mode, conversion (frmAccountNewPlan), deleting and help.
// Windows come from the Forms service by name; a face without them refuses clearly.
#pragma once

#include "frame/orvo_object_ui_base.h"

namespace orvo {

class UI0200400 : public OrvoObjectUIBase {
public:
    UI0200400();

    // Menu captions, as the host shows them and ClickMenu recognises them.
    static const QString kNewClass;
    static const QString kPrint;
    static const QString kPlans;
    static const QString kConvert;
    static const QString kDesktop;
    static const QString kNewAccount;
    static const QString kNewSubaccount;
    static const QString kMoveDown;
    static const QString kDelete;
    static const QString kSelect;
    static const QString kHelp;
    // The question asked before an account is moved one level down.
    static QString MoveDownQuestion();
    // What a click says when the window it needs is not available.
    static QString NoFormText(const QString& formName);

    // Empty or "FULL".
    QString planMode() const { return planMode_; }

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;
    RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from,
                                   const QString& to) override;

protected:
    OrvoObjectUIOPtr NewDataObject(const QString& oid) override;

private:
    ClickResult newRecord(const QString& oid);
    ClickResult openForm(const QString& formName, const OrvoObjectUIOPtr& object,
                         const QString& clicked);
    ClickResult moveDown(const QString& oid);
    ClickResult remove(const QString& oid);
    ClickResult select(const QString& oid);

    QString planMode_;
};

} // namespace orvo

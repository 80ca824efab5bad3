// AccountPlanEditor is what the editor of the chart (frmAccountPlan) knows and decides,
// kept apart from its widgets so that every rule can be tested without a display: which
// kind of record is open (class, account, subaccount) and whether it is new, the texts
// of the class panel and the account panel, the roles with at most one checked, the
// rules of the number and type boxes, the changed mark and what it enables, the checks
// and the save with its result numbers, undo, a new record of the same level and the
// matching account of a new chart. Messages go through the Messages service; what the
// host must do afterwards (refresh the tree, take the changed object) is returned.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QString>
#include <QVector>

namespace orvo {

class AccountPlanEditor {
public:
    enum class RecordKind { Class, Account, Subaccount };

    struct RoleItem {
        // "X" + the role's Id.
        QString Key;
        QString Name;
        QString Code;
        // The accounts of the role, each followed by ";".
        QString Accounts;
        bool Checked = false;
    };

    struct SaveOutcome {
        bool Saved = false;
        // The box that takes the focus after a refused check; empty otherwise.
        QString FocusControl;
        // The class number box is cleared (a class numbered 0 or 00).
        bool ClearClassNumber = false;
        // The parent or the record itself is gone: the host refreshes its tree.
        bool RefreshTree = false;
    };

    AccountPlanEditor(OrvoObjectUIOPtr object, bool showNewAccount);

    // Opening: the record's kind, its parent and class, the boxes, the roles. The record
    // must have been read.
    ResultRecord Load();

    RecordKind Kind() const { return kind_; }
    bool IsClass() const { return kind_ == RecordKind::Class; }
    bool IsNew() const;
    // "Klasė", "Nauja sąskaita", ...: the title of the record's own panel.
    QString PanelTitle() const;
    // The class panel of an account shows the class above, saved.
    QString ClassPanelTitle() const;
    bool ClassEditable() const { return IsClass(); }
    // The reference the caption shows: the stored key, or "N" + OID for a new record.
    QString CaptionKey() const { return captionKey_; }

    // The boxes, as shown and as typed by the form.
    QString ClassAccount, ClassName, ClassType;
    QString Account, Name, Type;
    // LbAccount: the parent's number and name when the parent is not the class.
    QString ParentLabel;
    QString NewAccountText;
    bool NewAccountRowVisible() const;

    QVector<RoleItem> Roles;
    // Checking a role unchecks every other one.
    void SetRoleChecked(int index, bool checked);
    // The Id of the first checked role, 0 when none.
    qint64 CheckedRoleId() const;

    // Number boxes take the digits and backspace only.
    static bool AcceptsNumberKey(int key);
    // txtAccount after a change: it must begin with the parent's number; when it
    // does not, the parent's number comes back (and the caret goes to its end).
    QString PrefixedAccount(const QString& text, bool* corrected = nullptr) const;
    // The type boxes: upper case, and anything that is not part of "DK" becomes "D".
    static QString TypeText(const QString& typed);
    // A class may not be numbered 0 or 00; leaving the box is refused silently.
    static bool RefusesClassNumber(const QString& text);

    // The changed mark: set by keys, texts and roles, never while loading.
    bool Changed() const { return changed_; }
    void MarkChanged();
    bool EnterEnabled() const { return changed_; }
    bool CancelEnabled() const { return changed_; }
    bool NewEnabled() const { return !changed_; }

    SaveOutcome Save();
    // Reads the record again (a new one keeps its parent) and reloads.
    ResultRecord Undo();
    // A blank record under the same parent.
    ResultRecord NewSameLevel();

    // The matching account of a new chart: picked as "OIDR_text", dropped, or cleared.
    bool TakeNewAccount(const QString& picked);
    // A dragged object is taken only when it is an account that is not a class and the
    // matching account's box is shown.
    bool AcceptsDrop(const QString& draggedKey, int draggedGroupFlag) const;
    void ClearNewAccount();

    // The question asked when the form closes with changes.
    static QString CloseQuestion(const QString& caption);

    const OrvoObjectUIOPtr& Object() const { return object_; }

private:
    ResultRecord loadRoles();
    bool check(const QString& text, const QString& message, const QString& control,
               SaveOutcome& outcome) const;
    qint64 parentId() const;

    OrvoObjectUIOPtr object_;
    OrvoObjectUIOPtr parent_;
    OrvoObjectUIOPtr class_;
    bool showNewAccount_ = false;
    RecordKind kind_ = RecordKind::Class;
    QString captionKey_;
    QString storedKey_;
    bool loading_ = false;
    bool changed_ = false;
};

} // namespace orvo

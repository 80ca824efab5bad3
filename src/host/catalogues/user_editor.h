// UserEditor is the editor of a user of the book and of the user's rights. Besides the
// fields of every catalogue record (login, name, initials, employee, administrator) it
// shows every right the user may be given, one row per key with five flags (read,
// delete, edit, create, fifth): the component's rights in the order of its list, the
// operations of each operation group (CBROperRights and the group's number), and the
// host's catalogues. A header row takes no flag and an on/off right only the first.
// The rights are saved with the user, in one transaction.
#pragma once

#include "host/catalogues/catalogue_editor.h"

namespace orvo::host {

class UserEditor : public CatalogueEditor {
public:
    using CatalogueEditor::CatalogueEditor;

    static const QStringList& FlagNames();

    // The rows of rights (UserRightFields), held in the user's record; never null after
    // Load.
    RecordsetPtr Rights() const;
    bool RightFlag(const QString& key, const QString& flag) const;
    // False, and nothing changes, for an unknown key, a header row, or a flag that the
    // right does not have.
    bool SetRightFlag(const QString& key, const QString& flag, bool on);
    // Whether the right of that row takes the flag.
    static bool TakesFlag(qint32 kind, const QString& flag);

    QVector<CatalogueChoice> Choices(const QString& name) const override;

protected:
    void afterLoad() override;

private:
    bool findRight(const QString& key) const;
    QVector<CatalogueChoice> employees_;
};

} // namespace orvo::host

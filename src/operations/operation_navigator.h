// UI0201500, the navigator of financial operations: under a group in the host's tree the
// operations of that group are its nodes. It lists them through the business object,
// gives the icons of every operation kind (and of the journal rows shown in the same
// list), builds a node's menu from the rights of the node's group, and answers a click:
// a new operation or document of the clicked kind in its editor, the editor of an
// existing one, the desktop, deletion, the selection and the search. Forms come from
// the Forms service by name; without the form a click is refused with a clear text.
#pragma once

#include "frame/orvo_object_ui_base.h"

namespace orvo {

class UI0201500 : public OrvoObjectUIBase {
public:
    explicit UI0201500(const QString& code = QStringLiteral("O0201500"));

    static std::shared_ptr<UI0201500> Create(const QString& code = QStringLiteral("O0201500"));

    // The menu caption that makes a new record of the kind, empty for none.
    static QString NewCaptionForKind(const QString& kind);
    // The kind whose "New" caption this is, empty when it is none.
    static QString KindForNewCaption(const QString& caption);

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;
    // Lists through the core with empty positions, whatever the host asks.
    RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from,
                                   const QString& to) override;
    bool DeleteOrvoObject(const QString& oid) override;
    bool AddToDeskTopOrvoObject(const QString& oid) override;
    bool DragOK(const QString& oid) override;
    bool DropOK(const QString& sourceOid, const QString& targetOid) override;

    // The text of a click that cannot be answered because the form is missing.
    static QString NoFormText(const QString& formName);

private:
    ClickResult newRecord(const QString& oid, const QString& parameters, const QString& kind);
    ClickResult select(const QString& oid);
    ClickResult search();
    ClickResult bankExport();
};

} // namespace orvo

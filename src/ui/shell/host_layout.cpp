#include "ui/shell/host_layout.h"

#include "host/catalogues/catalogue_editor_navigator.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

namespace orvo::ui {

QList<DLLHeader::Node> HostLayout::Nodes() {
    return {
        {host::kinds::Employee, QStringLiteral("Darbuotojai"), QStringLiteral("CEmployees"),
         host::kinds::Employee, true},
        {host::kinds::BankAccount, QStringLiteral("Banko sąskaitos"),
         QStringLiteral("CBankAccounts"), host::kinds::BankAccount, true},
        {host::kinds::User, QStringLiteral("Vartotojai"), QStringLiteral("CUsers"),
         host::kinds::User, true},
        // Its own code: the firms' node of the component already holds the firms' code.
        {QStringLiteral("MYFIRM"), QStringLiteral("Mano įmonė"), QStringLiteral("CFirms"),
         host::kinds::Firm, true},
    };
}

QHash<QString, QString> HostLayout::Actions() {
    return {{QStringLiteral("MYFIRM"), host::CatalogueNavigator::kOwnFirm}};
}

void HostLayout::Fill(PlainLayout& layout) {
    const LayoutNodePtr root = layout.AddLayout(Code(), Code(), Title(), QString());
    if (!root)
        return;
    const QHash<QString, QString> actions = Actions();
    for (const DLLHeader::Node& n : Nodes()) {
        const LayoutNodePtr node = root->AddNode(n.Code, n.Title, n.RightKey);
        if (!node)
            continue;
        node->SetObject(n.Object);
        if (n.Catalogue)
            node->SetCatalogue(-1);
        if (actions.contains(n.Code))
            layout.Append(QStringLiteral("SetAction"), {n.Code, actions.value(n.Code)});
    }
    // The host's branch is drawn as a folder of the window style.
    layout.AddTreeIcon(Code(), QStringLiteral("stdClose"));
}

} // namespace orvo::ui

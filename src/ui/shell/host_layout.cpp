#include "ui/shell/host_layout.h"

#include "host/catalogues/catalogue_editor_navigator.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

namespace orvo::ui {

QList<HostLayout::Node> HostLayout::Nodes() {
    return {
        {host::kinds::Employee, QStringLiteral("Darbuotojai"), QStringLiteral("CEmployees"),
         host::kinds::Employee, QString()},
        {host::kinds::BankAccount, QStringLiteral("Banko sąskaitos"),
         QStringLiteral("CBankAccounts"), host::kinds::BankAccount, QString()},
        {host::kinds::User, QStringLiteral("Vartotojai"), QStringLiteral("CUsers"),
         host::kinds::User, QString()},
        // Its own code: the firms' node of the component already holds the firms' code.
        {QStringLiteral("MYFIRM"), QStringLiteral("Mano įmonė"), QStringLiteral("CFirms"),
         host::kinds::Firm, host::CatalogueNavigator::kOwnFirm},
    };
}

void HostLayout::Fill(PlainLayout& layout) {
    const LayoutNodePtr root = layout.AddLayout(Code(), Code(), Title(), QString());
    if (!root)
        return;
    for (const Node& n : Nodes()) {
        const LayoutNodePtr node = root->AddNode(n.Code, n.Title, n.RightKey);
        if (!node)
            continue;
        node->SetObject(n.Object);
        node->SetCatalogue(-1);
        if (!n.Action.isEmpty())
            layout.Append(QStringLiteral("SetAction"), {n.Code, n.Action});
    }
    // The host's branch is drawn as a folder of the window style.
    layout.AddTreeIcon(Code(), QStringLiteral("stdClose"));
}

} // namespace orvo::ui

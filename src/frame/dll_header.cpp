#include "frame/dll_header.h"

namespace orvo {

namespace {

QString u(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace

QString DLLHeader::LayoutTitle() {
    return u("Buhalterinė apskaita");
}

QList<DLLHeader::Node> DLLHeader::Nodes() {
    return {
        {u("O0201400"), u("Finansinių operacijų apskaita"), u("CBROperRights"), u("O0201400"),
         false},
        {u("O0202100"), u("Komandiruotės"), u("CBusinessTrips"), u("O0202100"), false},
        {u("O0200500"), u("Žurnalai"), u("O0200500"), u("O0200500"), false},
        {u("O0001900"), u("Papildomos ataskaitos"), u("COrvoReportLockO0200500"),
         u("O0001900<%>O0200500<%>"), false},
        {u("O0201600"), u("Finansinių operacijų šablonai"), u("CTemplatesLock"), u("O0201600"),
         false},
        {u("O0200400"), u("Sąskaitų planas"), QString(), u("O0200400"), true},
        {u("O0000100"), u("Įmonės"), u("CFirms"), u("O0000100"), true},
        {u("CO0001400"), u("Fiziniai asmenys"), u("CPerson"), u("O0001402"), true},
        {u("O0000300"), u("Bankai"), u("CBanks"), u("O0000300"), true},
        {u("O0002200"), u("Valiuta"), u("CCurrency"), u("O0002200"), true},
        {u("O0201700"), u("Apmokėjimo šablonai"), u("CPaymentPlan"), u("O0201700"), false},
        // The host's multi-catalogue: its key and code, the selection tag, an empty field,
        // the templates' title without Lithuanian letters, and the served code.
        {u("O0005000"), u("Spausdintinių dokumentų šablonai ir dokumentai"), QString(),
         u("O0005000MULTI_CATALOGUE|O0005000#CONTRACTTEMPLATES##Finansines operacijos#O0201500%"),
         true},
    };
}

QList<DLLHeader::ObjectClass> DLLHeader::ObjectClasses() {
    return {
        {u("O0200400"), u("Sąskaitų planas")},
        {u("O0200500"), u("Finansinių operacijų ir balansinių sąskaitų žurnalai")},
        {u("O0201300"), u("Sąskaitų blokavimas")},
        {u("O0201400"), u("Finansinių operacijų apskaita")},
        {u("O0201500"), u("Finansinės operacijos")},
        {u("O0201600"), u("Finansinių operacijų šablonai")},
        {u("O0201700"), u("Apmokėjimo šablonai")},
    };
}

QList<DLLHeader::Icon> DLLHeader::Icons() {
    return {
        {u("C0200400"), u("C0200400")},
        {u("C0200300"), u("C0200300")},
        {u("C0200500J"), u("C0200500J")},
        // The journals' key has no picture of its own.
        {u("C0200500"), u("C0200500J")},
        {u("C0201300"), u("C0201300")},
        {u("C0201400"), u("C0201400")},
        {u("C0201500"), u("C0201500")},
        {u("C0201501"), u("C0201501")},
        {u("C0201502"), u("C0201502")},
        {u("C0201503"), u("C0201503")},
        {u("C0201504"), u("C0201504")},
        {u("C0201505"), u("C0201505")},
        {u("C0201506"), u("C0201506")},
        {u("C0201600"), u("C0201600")},
        // A class of another component, shown with the operations' picture.
        {u("C0202000"), u("C0201500")},
    };
}

QList<DLLHeader::Icon> DLLHeader::TreeIcons() {
    return {
        // The root is keyed by the layout's code and drawn from the layout picture.
        {u("L02020011"), u("LAYOUT")},
        {u("C0200500J"), u("C0200500J")},
        {u("C0200500G"), u("C0200500G")},
        {u("C0200400"), u("C0200400")},
        {u("C0200300"), u("C0200300")},
        {u("C0201300"), u("C0201300")},
        {u("C0201400"), u("C0201400")},
        {u("C0201500"), u("C0201500")},
        {u("C0201501"), u("C0201501")},
        {u("C0201502"), u("C0201502")},
        {u("C0201503"), u("C0201503")},
        {u("C0201504"), u("C0201504")},
        {u("C0201505"), u("C0201505")},
        {u("C0201506"), u("C0201506")},
        {u("C0201600"), u("C0201600")},
        {u("C0202000"), u("C0201500")},
        {u("DOCUMENT_CHECK"), u("DOCUMENT_CHECK")},
        {u("DOCUMENT_ERROR"), u("DOCUMENT_ERROR")},
    };
}

ResultRecord DLLHeader::DllInicialize(OrvoLayout& layout) {
    QStringList missing;
    for (const QList<Icon>& table : {Icons(), TreeIcons()})
        for (const Icon& icon : table)
            if (!resources_.Contains(icon.Picture) && !missing.contains(icon.Picture))
                missing.append(icon.Picture);
    if (!missing.isEmpty())
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("The component carries no icon resource ") +
                                         missing.join(QStringLiteral(", ")));

    const LayoutNodePtr root =
        layout.AddLayout(QString::fromLatin1(LayoutKey), QString::fromLatin1(LayoutCode),
                         LayoutTitle(), QString::fromLatin1(LayoutRightKey));
    if (!root)
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("The host's layout gave no root node"));
    for (const Node& n : Nodes()) {
        const LayoutNodePtr node = root->AddNode(n.Code, n.Title, n.RightKey);
        if (!node)
            continue;
        node->SetObject(n.Object);
        if (n.Catalogue)
            node->SetCatalogue(-1);
    }

    const QString file = QString::fromLatin1(ClassFile);
    bool first = true;
    for (const ObjectClass& c : ObjectClasses()) {
        if (first)
            layout.AddMainObjectClass(file, c.Code, c.Title);
        else
            layout.AddObjectClass(file, c.Code, c.Title);
        first = false;
    }

    for (const Icon& icon : Icons())
        layout.AddIcon(icon.Key, icon.Picture);
    for (const Icon& icon : TreeIcons())
        layout.AddTreeIcon(icon.Key, icon.Picture);
    return ResultRecord::Success();
}

} // namespace orvo

// HostLayout is the host's own branch of the tree, beside the component's "Buhalterinė
// apskaita": "Nustatymai", the host's catalogues that have editors but no node in the
// component's branch. The list lives here, with the desktop, and not in the component's
// DLLHeader, because these are the host's records (employees, bank accounts, users, the
// own firm), which the component only refers to.
//
// "Darbuotojai", "Banko sąskaitos" and "Vartotojai" list their records through the
// catalogues' navigators, and Enter or a double click on a row opens its editor.
// "Mano įmonė" lists nothing: Enter or a double click opens the firm that keeps the
// books in frmMyFirm, through the firms' navigator's own entry "Mano įmonė" (the node's
// "SetAction" row, see HostTree).
#pragma once

#include "frame/dll_header.h"
#include "frame/plain_layout.h"

#include <QHash>
#include <QList>
#include <QString>

namespace orvo::ui {

class HostLayout {
public:
    static QString Code() { return QStringLiteral("LHOST0001"); }
    static QString Title() { return QStringLiteral("Nustatymai"); }
    // The nodes, in the order shown; every one is a catalogue of the host.
    static QList<DLLHeader::Node> Nodes();
    // The navigator's menu entry that Enter clicks on a node, by the node's code; a node
    // not named here lists rows.
    static QHash<QString, QString> Actions();

    // Appends the branch to a filled layout: its root, nodes, their objects, catalogue
    // marks and actions, and the root's tree icon.
    static void Fill(PlainLayout& layout);
};

} // namespace orvo::ui

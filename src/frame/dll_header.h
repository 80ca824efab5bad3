// DLLHeader tells the host what the component is, in the one call DllInicialize: the
// root of its branch ("L02020011", "Buhalterinė apskaita"), the twelve nodes under it,
// the seven object classes it serves (all from the file "KontavoUI"), and the keys of
// the host's two icon tables with the component's icon resource for each. The tables
// are the system's configuration: they are added row by row in the order the host is
// to show them. Every picture is looked up in the component's IconResources before
// anything is added; a missing one fails the call and leaves the layout untouched.
#pragma once

#include "core/results.h"
#include "frame/icon_resources.h"
#include "frame/orvo_layout.h"

#include <QList>
#include <QString>

namespace orvo {

class DLLHeader {
public:
    struct Node {
        QString Code;
        QString Title;
        QString RightKey;
        QString Object;
        bool Catalogue = false;
    };
    struct ObjectClass {
        QString Code;
        QString Title;
    };
    struct Icon {
        QString Key;
        QString Picture; // the icon resource's name
    };

    static constexpr const char* LayoutKey = "L02020011";
    static constexpr const char* LayoutCode = "L02020011";
    static constexpr const char* LayoutRightKey = "CBookLayout";
    static constexpr const char* ClassFile = "KontavoUI";
    static QString LayoutTitle();

    // The tables, in the order of registration.
    static QList<Node> Nodes();
    static QList<ObjectClass> ObjectClasses();
    static QList<Icon> Icons();
    static QList<Icon> TreeIcons();

    DLLHeader() : resources_(IconResources::Component()) {}
    explicit DLLHeader(IconResources resources) : resources_(std::move(resources)) {}

    // Registers the branch, classes and icons through `layout`.
    ResultRecord DllInicialize(OrvoLayout& layout);

private:
    IconResources resources_;
};

} // namespace orvo

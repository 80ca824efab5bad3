#include "frame/layout_resource_strings.h"

namespace orvo {

QList<ResourceString> LayoutResourceStrings::Rows() {
    static const char* const texts[] = {
        "B_L02020011||-1",
        "N_L02020011Obj|B_L02020011|503",
        "C_BAccounts|N_L02020011Obj|51",
        "B_BJournals|N_L02020011Obj|52",
        "B_BJournalCFG|B_BJournals|54",
        "B_BJournalEnter|B_BJournals|500",
        "B_BJournalPrint|B_BJournals|501",
        "B_BookMain|N_L02020011Obj|53",
        "B_BMainCGF|B_BookMain|59",
        "C_BMainPrint|B_BookMain|502",
        "B_BMainAnaliz|B_BookMain|58",
    };
    QList<ResourceString> rows;
    int id = FirstId;
    for (const char* t : texts)
        rows.append({id++, QString::fromLatin1(t)});
    return rows;
}

QString LayoutResourceStrings::Text(int id) {
    for (const ResourceString& r : Rows())
        if (r.Id == id)
            return r.Text;
    return QString();
}

} // namespace orvo

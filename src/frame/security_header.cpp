#include "frame/security_header.h"

namespace orvo {

QList<ComponentRight> SecurityHeader::GetComponentList() const {
    const auto row = [](const char* parent, const char* key, const char* title, qint32 kind) {
        return ComponentRight{QString::fromUtf8(parent), QString::fromUtf8(key),
                              QString::fromUtf8(title), kind};
    };
    constexpr qint32 full = ComponentRight::FullActions;
    constexpr qint32 onOff = ComponentRight::OnOff;
    return {
        // The one key with a "|": the file kind and the branch.
        row("", "DLL|L02020011", "Buhalterinė apskaita", ComponentRight::Header),
        row("", "CBookLayout", "Aplinkos peržūra", full),
        row("", "CAllAccLock", "Sąskaitų blokavimas", onOff),
        row("", "CBROperGroupRights", "Finansinių operacijų grupių tvarkymas", full),
        row("", "CBROperRights", "Finansinių operacijų tvarkymas", full),
        row("", "O0200500", "Žurnalai", full),
        row("O0200500", "O0200502", "Sąskaitos žurnalas", full),
        row("O0200500", "O0200503", "Suvestinis sąskaitų žurnalas", full),
        row("O0200500", "O0200501", "Finansinių operacijų žurnalas", full),
        row("O0200500", "O0200504", "Finansinės atskaitomybės formos", full),
        row("O0200500", "O0200505", "Pardavimų ir pirkimų žurnalai", full),
        row("O0200500", "O0200506", "Pinigų gavimų ir mokėjimų žurnalai", full),
        row("O0200500", "O0200508", "Sąskaitos apyvartos žurnalas", full),
        row("O0200500", "O0200509", "Valiutų kursų žurnalai", full),
        row("", "CTemplatesLock", "Finansinių operacijų šablonų tvarkymas", full),
        row("", "CAccountPlanRights", "Sąskaitos plano tvarkymas", onOff),
    };
}

} // namespace orvo

// How the operation commands reach their windows: by name through the Forms service of
// the module-wide services, as the interface the command needs (EntryCardForm,
// SelectionForm ...). A face without that window (the command line, a test that
// registers none) gets a clear refusal, Code 777 and a Lithuanian text naming the
// window, instead of a silent nothing.
#pragma once

#include "core/results.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

#include <QCoreApplication>
#include <QString>
#include <memory>

namespace orvo::FormAccess {

// A new form of that name as the interface T, or null when there is no Forms service,
// no form of that name, or the form does not offer T.
template <typename T> std::shared_ptr<T> CreateFormAs(const QString& name) {
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    if (!forms)
        return nullptr;
    return std::dynamic_pointer_cast<T>(forms->CreateForm(name));
}

// "Nepavyko atidaryti lango <name>!" with Code 777.
inline ValueResult Unavailable(const QString& name) {
    return ValueResult::Failure(codes::Refused, QStringLiteral("Nepavyko atidaryti lango ") + name +
                                                    QStringLiteral("!"));
}

// Lets the window system paint between long steps; nothing happens without a running
// application.
inline void GiveEventLoopATurn() {
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

} // namespace orvo::FormAccess

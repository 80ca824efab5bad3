// QtDeskTopService is the desktop's OrvoDeskTopService: a form added ("Padėti ant darbo
// stalo") is shown on the DeskTop and kept by the service until it is removed, so that
// it stays there after the call that opened it has ended, even when its window closes.
#pragma once

#include "frame/orvo_desktop_service.h"
#include "frame/orvo_form.h"
#include "ui/shell/desk_top.h"

#include <QList>
#include <QPointer>
#include <functional>

namespace orvo::ui {

class QtDeskTopService : public OrvoDeskTopService {
public:
    explicit QtDeskTopService(DeskTop* desk = nullptr) : desk_(desk) {}

    void AddForm(const std::shared_ptr<OrvoForm>& form) override;
    void RemoveForm(const std::shared_ptr<OrvoForm>& form) override;
    void RefreshObject(const QString& oidr, const QString& parentOidr) override;

    // What the main window does when an object was stored (it reads the tree's lists again).
    std::function<void(const QString& oidr, const QString& parentOidr)> OnRefresh;

    void SetDeskTop(DeskTop* desk);
    const QList<OrvoFormPtr>& Forms() const { return forms_; }

private:
    QPointer<DeskTop> desk_;
    QList<OrvoFormPtr> forms_;
};

} // namespace orvo::ui

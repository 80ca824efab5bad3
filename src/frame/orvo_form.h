// OrvoForm is the handle of one of the component's windows (frmBROper, frmCashPayment
// ...). Its opener sets the writable members in a fixed order: boolModalForm, then
// OrvoObjectUIO (binding the form to its data object), then ClickedParameters; then it
// shows the form. A form gives no return value: what it did is seen in its data object.
// The desktop implements it over real widgets; tests implement it over plain objects.
#pragma once

#include "core/object_base.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoObjectUIO;
using OrvoObjectUIOPtr = std::shared_ptr<OrvoObjectUIO>;

class OrvoForm : public ObjectBase {
public:
    // The window's name, such as "frmBROper".
    virtual QString FormName() const = 0;
    QString ClassName() const override { return FormName(); }

    virtual void SetBoolModalForm(bool modal) { boolModalForm_ = modal; }
    bool boolModalForm() const { return boolModalForm_; }

    virtual void SetOrvoObjectUIO(const OrvoObjectUIOPtr& uio) { uio_ = uio; }
    OrvoObjectUIOPtr GetOrvoObjectUIO() const { return uio_; }

    virtual void SetClickedParameters(const QString& parameters) { clicked_ = parameters; }
    QString ClickedParameters() const { return clicked_; }

    // Shows the form; a modal form returns only when it is closed.
    virtual void Show(bool modal) = 0;
    // Closes the form when the host asks for it.
    virtual void UnloadShowOrvoObject() = 0;

private:
    bool boolModalForm_ = false;
    OrvoObjectUIOPtr uio_;
    QString clicked_;
};

using OrvoFormPtr = std::shared_ptr<OrvoForm>;

} // namespace orvo

// What ShowBROper reads of the operation editor frmBROper after showing it modally: the
// value the editor leaves for its opener (Null when it leaves none). An editor that does
// not offer this interface is still shown, and the command's value is then Null.
#pragma once

#include "core/value.h"
#include "frame/orvo_form.h"

namespace orvo {

class OperationEditorForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmBROper"); }

    virtual Value ReturnValue() const = 0;
};

} // namespace orvo

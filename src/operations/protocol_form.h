// What ShowProtocol needs of the small protocol window frmProtocol: who made the
// operation and when, who last changed it and when, each as text (empty when the
// record has none).
#pragma once

#include "frame/orvo_form.h"

namespace orvo {

class ProtocolForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmProtocol"); }

    virtual void SetProtocol(const QString& createdByUserName, const QString& creationDate,
                             const QString& changedByUserName, const QString& correctionDate) = 0;
};

} // namespace orvo

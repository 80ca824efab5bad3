// frmProtocol, "Protokolas": the small modal window that shows who made an operation and
// when, who changed it last and when, and under them its change protocol (BRLog: every
// change with its "Data" and "Vartotojas", oldest first, from the operation's BROperLog).
// It only shows; nothing in it changes the operation.
#pragma once

#include "operations/protocol_form.h"

class QWidget;

namespace orvo {

class FrmProtocol : public ProtocolForm {
public:
    void SetProtocol(const QString& createdByUserName, const QString& creationDate,
                     const QString& changedByUserName, const QString& correctionDate) override;

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

private:
    QWidget* build();

    QString createdBy_;
    QString created_;
    QString changedBy_;
    QString changed_;
};

} // namespace orvo

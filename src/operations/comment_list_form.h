// What GetCommentList needs of the comment templates window frmCommentList: the text
// it opens with, and after it closes whether the user cancelled and the comment chosen.
#pragma once

#include "frame/orvo_form.h"

namespace orvo {

class CommentListForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmCommentList"); }

    virtual void SetInitialText(const QString& text) = 0;

    virtual bool Cancelled() const = 0;
    virtual QString SelectedComment() const = 0;
};

} // namespace orvo

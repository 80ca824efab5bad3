// frmCommentList, " Komentarų šablonai": the modal window in which the accountant picks
// one of the book's ready comments for an operation, and keeps that list (adds, edits and
// deletes rows in the frame below it). The rows live in the book, reached through the
// operation's CommentList property (CommentListEditor); the window only shows them.
#pragma once

#include "operations/comment_list_editor.h"
#include "operations/comment_list_form.h"

#include <memory>

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QWidget;

namespace orvo {

class FrmCommentList : public CommentListForm {
public:
    void SetInitialText(const QString& text) override { initial_ = text; }
    bool Cancelled() const override { return cancelled_; }
    QString SelectedComment() const override { return selected_; }

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

private:
    QWidget* build();
    void fill(qint64 currentId, const QString& currentText);
    qint64 currentId() const;
    void startRow(bool isNew);
    void endRow();
    void saveRow();
    void deleteRow();
    void choose();
    void close(bool accepted);

    QString initial_;
    bool cancelled_ = true;
    QString selected_;
    std::unique_ptr<CommentListEditor> editor_;
    // The row being edited; 0 while a new one is written, -1 while the frame is idle.
    qint64 editing_ = -1;

    QWidget* root_ = nullptr;
    QTreeWidget* lvwRows_ = nullptr;
    QGroupBox* frameRow_ = nullptr;
    QLineEdit* txtRow_ = nullptr;
    QPushButton* cmdSave_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QLabel* status_ = nullptr;
};

} // namespace orvo

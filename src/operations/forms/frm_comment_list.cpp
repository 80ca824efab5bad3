#include "operations/forms/frm_comment_list.h"

#include "frame/messages.h"
#include "ui/shell/built_widget_form.h"

#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

const QString kIdleFrame = QStringLiteral("Įrašo tvarkymas");

QPushButton* button(QWidget* parent, const char* name, const QString& text) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QString::fromLatin1(name));
    return b;
}

QAction* action(QWidget* parent, const char* name, const QString& text, const QKeySequence& key) {
    auto* a = new QAction(text, parent);
    a->setObjectName(QString::fromLatin1(name));
    a->setShortcut(key);
    a->setShortcutContext(Qt::WidgetShortcut);
    parent->addAction(a);
    return a;
}

// Enter on a row chooses it, as a double click does.
class EnterChooses : public QObject {
public:
    EnterChooses(QObject* parent, std::function<void()> choose)
        : QObject(parent), choose_(std::move(choose)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                choose_();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> choose_;
};

} // namespace

void FrmCommentList::Show(bool) {
    cancelled_ = true;
    selected_.clear();
    editing_ = -1;
    editor_ = std::make_unique<CommentListEditor>(GetOrvoObjectUIO());
    // A refusal of the book has already been shown by the property's convention.
    if (!editor_->Load().ok())
        return;
    auto window = std::make_shared<ui::BuiltWidgetForm>(QStringLiteral("frmCommentList"),
                                                        [this]() { return build(); });
    window->Show(true);
    root_ = nullptr;
}

QWidget* FrmCommentList::build() {
    root_ = new QWidget;
    root_->setWindowTitle(QStringLiteral(" Komentarų šablonai"));

    lvwRows_ = new QTreeWidget(root_);
    lvwRows_->setObjectName(QStringLiteral("lvwRows"));
    lvwRows_->setHeaderLabels({QStringLiteral("Pavadinimas")});
    lvwRows_->setRootIsDecorated(false);
    lvwRows_->setContextMenuPolicy(Qt::ActionsContextMenu);
    lvwRows_->header()->setStretchLastSection(true);

    QAction* mnuNew = action(lvwRows_, "mnuNew", QStringLiteral("Pridėti"), Qt::Key_Insert);
    QAction* mnuEdit = action(lvwRows_, "mnuEdit", QStringLiteral("Redaguoti"), Qt::Key_F2);
    QAction* mnuDelete =
        action(lvwRows_, "mnuDelete", QStringLiteral("Panaikinti"), Qt::Key_Delete);
    QObject::connect(mnuNew, &QAction::triggered, root_, [this]() { startRow(true); });
    QObject::connect(mnuEdit, &QAction::triggered, root_, [this]() { startRow(false); });
    QObject::connect(mnuDelete, &QAction::triggered, root_, [this]() { deleteRow(); });
    QObject::connect(lvwRows_, &QTreeWidget::itemDoubleClicked, root_, [this]() { choose(); });
    lvwRows_->installEventFilter(new EnterChooses(lvwRows_, [this]() { choose(); }));

    frameRow_ = new QGroupBox(kIdleFrame, root_);
    frameRow_->setObjectName(QStringLiteral("frameRow"));
    txtRow_ = new QLineEdit(frameRow_);
    txtRow_->setObjectName(QStringLiteral("txtRow"));
    txtRow_->setMaxLength(1000);
    cmdSave_ = button(frameRow_, "cmdSave", QStringLiteral("Išsaugoti"));
    cmdCancel_ = button(frameRow_, "cmdCancel", QStringLiteral("Atšaukti"));
    auto* frameLayout = new QHBoxLayout(frameRow_);
    frameLayout->addWidget(txtRow_, 1);
    frameLayout->addWidget(cmdSave_);
    frameLayout->addWidget(cmdCancel_);
    QObject::connect(cmdSave_, &QPushButton::clicked, root_, [this]() { saveRow(); });
    QObject::connect(cmdCancel_, &QPushButton::clicked, root_, [this]() { endRow(); });
    QObject::connect(txtRow_, &QLineEdit::returnPressed, root_, [this]() { saveRow(); });

    status_ = new QLabel(root_);
    status_->setObjectName(QStringLiteral("lblStatus"));
    QPushButton* cmdOK = button(root_, "cmdOK", QStringLiteral("Gerai"));
    QPushButton* cmdExit = button(root_, "cmdExit", QStringLiteral("Atšaukti"));
    QObject::connect(cmdOK, &QPushButton::clicked, root_, [this]() { choose(); });
    QObject::connect(cmdExit, &QPushButton::clicked, root_, [this]() { close(false); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(status_, 1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdExit);

    auto* layout = new QVBoxLayout(root_);
    layout->addWidget(lvwRows_, 1);
    layout->addWidget(frameRow_);
    layout->addLayout(buttons);
    QWidget::setTabOrder(lvwRows_, txtRow_);
    QWidget::setTabOrder(txtRow_, cmdSave_);
    QWidget::setTabOrder(cmdSave_, cmdCancel_);
    QWidget::setTabOrder(cmdCancel_, cmdOK);
    QWidget::setTabOrder(cmdOK, cmdExit);

    fill(0, initial_);
    endRow();
    lvwRows_->setFocus();
    return root_;
}

void FrmCommentList::fill(qint64 currentId, const QString& currentText) {
    lvwRows_->clear();
    for (const CommentListEditor::Row& row : editor_->Rows()) {
        auto* item = new QTreeWidgetItem(lvwRows_, {row.Name});
        item->setData(0, Qt::UserRole, row.ID);
    }
    int index = currentId > 0 ? editor_->IndexOf(currentId) : -1;
    if (index < 0)
        index = editor_->IndexOfText(currentText);
    if (index < 0 && lvwRows_->topLevelItemCount() > 0)
        index = 0;
    if (index >= 0)
        lvwRows_->setCurrentItem(lvwRows_->topLevelItem(index));
}

qint64 FrmCommentList::currentId() const {
    const QTreeWidgetItem* item = lvwRows_ ? lvwRows_->currentItem() : nullptr;
    return item ? item->data(0, Qt::UserRole).toLongLong() : 0;
}

void FrmCommentList::startRow(bool isNew) {
    if (!isNew && currentId() == 0)
        return;
    editing_ = isNew ? 0 : currentId();
    frameRow_->setTitle(isNew ? QStringLiteral("Naujas įrašas")
                              : QStringLiteral("Įrašo redagavimas"));
    txtRow_->setText(isNew ? QString() : lvwRows_->currentItem()->text(0));
    for (QWidget* w : {static_cast<QWidget*>(txtRow_), static_cast<QWidget*>(cmdSave_),
                       static_cast<QWidget*>(cmdCancel_)})
        w->setEnabled(true);
    lvwRows_->setEnabled(false);
    txtRow_->setFocus();
    txtRow_->selectAll();
}

void FrmCommentList::endRow() {
    editing_ = -1;
    frameRow_->setTitle(kIdleFrame);
    txtRow_->clear();
    for (QWidget* w : {static_cast<QWidget*>(txtRow_), static_cast<QWidget*>(cmdSave_),
                       static_cast<QWidget*>(cmdCancel_)})
        w->setEnabled(false);
    lvwRows_->setEnabled(true);
    lvwRows_->setFocus();
}

void FrmCommentList::saveRow() {
    if (editing_ < 0)
        return;
    const QString text = txtRow_->text();
    const ResultRecord r = editing_ == 0 ? editor_->Add(text) : editor_->Change(editing_, text);
    if (!r.ok()) {
        // The book's refusal has been shown already; the frame stays open with what was
        // typed, so nothing is lost.
        txtRow_->setFocus();
        return;
    }
    const qint64 id = editing_;
    QString shown = text;
    shown.replace(QLatin1Char('\''), QLatin1Char(' '));
    endRow();
    fill(id, shown.trimmed());
}

void FrmCommentList::deleteRow() {
    const qint64 id = currentId();
    if (id == 0)
        return;
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return;
    // A refusal is shown by the property's convention; the list is then read again, since
    // someone else may have deleted the row meanwhile.
    if (!editor_->Delete(id).ok())
        editor_->Load();
    fill(0, QString());
}

void FrmCommentList::choose() {
    const QTreeWidgetItem* item = lvwRows_->currentItem();
    if (!item) {
        ShowWarning(QStringLiteral("Nepasirinktas komentaras !"));
        return;
    }
    selected_ = item->text(0);
    cancelled_ = false;
    status_->setText(QStringLiteral("Parinktas įrašas"));
    close(true);
}

void FrmCommentList::close(bool accepted) {
    if (auto* dialog = qobject_cast<QDialog*>(root_->window()))
        accepted ? dialog->accept() : dialog->reject();
}

} // namespace orvo

// Windows for the tests of the operation commands: plain objects that keep what their
// opener handed them and answer as the test scripts them. They stand in for the
// desktop's widgets only in these unit tests.
#pragma once

#include "operations/comment_list_form.h"
#include "operations/entry_card_form.h"
#include "operations/operation_editor_form.h"
#include "operations/protocol_form.h"
#include "operations/selection_form.h"

#include <functional>

namespace orvo::test {

class PlainForm : public OrvoForm {
public:
    explicit PlainForm(const QString& name) : name_(name) {}
    QString FormName() const override { return name_; }
    void Show(bool modal) override {
        shown = true;
        shownModal = modal;
    }
    void UnloadShowOrvoObject() override {}
    bool shown = false;
    bool shownModal = false;

private:
    QString name_;
};

class ScriptedEntryCard : public EntryCardForm {
public:
    void SetEntries(const RecordsetPtr& br) override { entries = br; }
    void SetGUID(const QString& g) override { guid = g; }
    void SetRestricted(bool r) override { restricted = r; }
    void SetCurrenciesEditable(bool e) override { currenciesEditable = e; }
    void SetTabNumber(qint16 t) override { tab = t; }
    void SetAllowedKinds(const QString& k) override { kinds = k; }
    void Show(bool modal) override {
        shownModal = modal;
        if (onShow)
            onShow(*this);
    }
    void UnloadShowOrvoObject() override {}
    qint16 ResultFlag() const override { return flag; }

    RecordsetPtr entries;
    QString guid;
    bool restricted = false;
    bool currenciesEditable = false;
    qint16 tab = -1;
    QString kinds;
    bool shownModal = false;
    qint16 flag = 0;
    std::function<void(ScriptedEntryCard&)> onShow;
};

class ScriptedSelection : public SelectionForm {
public:
    void SetSelectParameters(const RecordsetPtr& p) override { parameters = p; }
    void Show(bool modal) override { shownModal = modal; }
    void UnloadShowOrvoObject() override {}
    bool Cancelled() const override { return cancelled; }
    RecordsetPtr Result() const override { return result; }

    RecordsetPtr parameters;
    bool shownModal = false;
    bool cancelled = false;
    RecordsetPtr result;
};

class ScriptedCommentList : public CommentListForm {
public:
    void SetInitialText(const QString& t) override { initialText = t; }
    void Show(bool modal) override { shownModal = modal; }
    void UnloadShowOrvoObject() override {}
    bool Cancelled() const override { return cancelled; }
    QString SelectedComment() const override { return comment; }

    QString initialText;
    bool shownModal = false;
    bool cancelled = false;
    QString comment;
};

class ScriptedProtocol : public ProtocolForm {
public:
    void SetProtocol(const QString& a, const QString& b, const QString& c,
                     const QString& d) override {
        texts = {a, b, c, d};
    }
    void Show(bool modal) override { shownModal = modal; }
    void UnloadShowOrvoObject() override {}
    QStringList texts;
    bool shownModal = false;
};

class ScriptedEditor : public OperationEditorForm {
public:
    void Show(bool modal) override { shownModal = modal; }
    void UnloadShowOrvoObject() override {}
    Value ReturnValue() const override { return returnValue; }
    bool shownModal = false;
    Value returnValue;
};

} // namespace orvo::test

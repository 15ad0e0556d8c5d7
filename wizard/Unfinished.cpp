// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/Unfinished.h"

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/OptionButton.h"
#include "forms/SSTab.h"
#include "platform/AppPath.h"
#include "platform/Events.h"
#include "platform/PlainText.h"
#include "services/Messages.h"
#include "shell/EarlierTexts.h"
#include "shell/ListingEditor.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmTerms.h"
#include "wizard/Terms.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>
#include <chrono>
#include <utility>

namespace brindlemark {

using namespace std::chrono_literals;

namespace {

/// How old what is kept gets while somebody goes on typing.
constexpr auto KeepFieldsEvery = 10s;

QStringList journalFolders()
{
    return {AppPath(), QDir::homePath()};
}

QString journalName(Unfinished::Kind kind)
{
    return kind == Unfinished::Kind::Listing ? QStringLiteral("Brindlemark-listing")
                                             : QStringLiteral("Brindlemark-terms");
}

/// A kind of field: `get` and `set` do nothing for a widget that is none of it.
struct FieldKind
{
    QJsonValue (*get)(const QWidget& widget);
    void (*set)(QWidget& widget, const QJsonValue& value);
};

template <typename Field, typename Get, typename Set>
constexpr FieldKind fieldKind(Get, Set)
{
    return {[](const QWidget& widget) -> QJsonValue {
                const auto* field = qobject_cast<const Field*>(&widget);
                return field ? Get()(*field) : QJsonValue(QJsonValue::Undefined);
            },
            [](QWidget& widget, const QJsonValue& value) {
                if (auto* field = qobject_cast<Field*>(&widget))
                    Set()(*field, value);
            }};
}

/// In the order in which they are filled.
constexpr std::array FieldKinds = {
    fieldKind<OptionButton>(
        [](const OptionButton& field) { return QJsonValue(field.Value()); },
        [](OptionButton& field, const QJsonValue& value) { field.setValue(value.toBool()); }),
    fieldKind<CheckBox>([](const CheckBox& field) { return QJsonValue(field.Value()); },
                        [](CheckBox& field, const QJsonValue& value) { field.setValue(value.toInt()); }),
    fieldKind<ComboBox>([](const ComboBox& field) { return QJsonValue(field.Text()); },
                        [](ComboBox& field, const QJsonValue& value) { field.setText(value.toString()); }),
    fieldKind<QLineEdit>([](const QLineEdit& field) { return QJsonValue(field.text()); },
                         [](QLineEdit& field, const QJsonValue& value) { field.setText(value.toString()); }),
    fieldKind<QPlainTextEdit>(
        [](const QPlainTextEdit& field) { return QJsonValue(field.toPlainText()); },
        [](QPlainTextEdit& field, const QJsonValue& value) { field.setPlainText(value.toString()); }),
    fieldKind<SSTab>([](const SSTab& field) { return QJsonValue(field.Tab()); },
                     [](SSTab& field, const QJsonValue& value) {
                         field.setTab(qBound(0, value.toInt(), field.count() - 1));
                     }),
};

/// What an ended program left of a kind; `take` says whether it has taken it over.
void offer(Unfinished::Kind kind, const Message& question,
           const std::function<bool(const Journal::Leftover&)>& take)
{
    Journal journal(journalFolders(), journalName(kind));
    while (const std::optional<Journal::Leftover> left = journal.takeLeftover()) {
        switch (showMessage(question)) {
        case MsgAnswer::Yes:
            if (take(*left))
                journal.clear();
            journal.leave();
            return; // others are offered at the next start
        case MsgAnswer::No:
            if (kind == Unfinished::Kind::Terms && loadedEditor()) {
                loadedEditor()->earlierTexts().keep(left->document, Dropped::Declined,
                                                    [text = left->text] { return text; });
            }
            journal.clear();
            break;
        default:
            journal.leave();
        }
    }
}

bool bringBackTerms(const Journal::Leftover& left)
{
    for (size_t i = 0; i < TermsFiles.size(); ++i) {
        if (appFile(TermsFiles.at(i).file) == left.document) {
            openTerms(int(i));
            form<FrmTerms>()->takeUnfinished(QString::fromUtf8(left.text));
            return true;
        }
    }
    return false; // of a program in another folder: it is for a start of that one
}

} // namespace

Unfinished::Unfinished(Kind kind, QObject* owner, std::function<void()> keep)
    : m_timer(owner), m_keep(std::move(keep)), m_journal(journalFolders(), journalName(kind))
{
    m_timer.setObjectName(QStringLiteral("UnfinishedTimer"));
    on(&m_timer, &QTimer::timeout, owner, m_keep);
    m_timer.start(KeepFieldsEvery);
}

void Unfinished::keepNow(const QString& of, const QByteArray& text)
{
    if (text == m_last)
        return;
    m_last = text;
    m_journal.keep(of, [text] { return text; });
}

void Unfinished::passOver(const QByteArray& text)
{
    m_last = text;
    if (m_journal.holds())
        m_journal.clear();
}

void Unfinished::finish()
{
    m_keep();
    m_journal.finish();
}

QByteArray fieldsOf(const QWidget& form)
{
    QJsonObject fields;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (qobject_cast<const QComboBox*>(widget->parentWidget()))
            continue; // a part of it
        for (const FieldKind& kind : FieldKinds) {
            if (const QJsonValue value = kind.get(*widget); !value.isUndefined())
                fields.insert(widget->objectName(), value);
        }
    }
    return QJsonDocument(fields).toJson();
}

void fillFields(const QWidget& form, const QByteArray& fields)
{
    const QJsonObject values = QJsonDocument::fromJson(fields).object();
    for (const FieldKind& kind : FieldKinds) {
        for (QWidget* widget : form.findChildren<QWidget*>()) {
            const QJsonValue value = values.value(widget->objectName());
            if (!value.isUndefined() && !widget->objectName().isEmpty())
                kind.set(*widget, value);
        }
    }
}

void offerUnfinished()
{
    offer(Unfinished::Kind::Listing, Messages::TakeListingBack, [](const Journal::Leftover& left) {
        form<FrmBuild1>()->Show();
        form<FrmBuild1>()->takeUnfinished(left.text);
        return true;
    });
    offer(Unfinished::Kind::Terms, Messages::TakeTermsBack, bringBackTerms);
}

} // namespace brindlemark

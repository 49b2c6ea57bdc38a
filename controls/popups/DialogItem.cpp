// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/DialogItem.h"

#include "controls/support/ActiveFocus.h"
#include "controls/support/OverlayZ.h"
#include "controls/support/Teardown.h"

#include <QPointer>
#include <QQuickWindow>

namespace om::controls {

namespace {

/// The dialogs of the process, in all windows, that are open now.
int openDialogs = 0;

} // namespace

class DialogItem::Private
{
public:
    explicit Private(DialogItem *dialog)
        : q(dialog)
    {
    }

    void setOpen(bool value);
    void takeOver();
    void giveBack();
    void enableSiblings();

    DialogItem *const q;
    DialogTypes type = TypeNormal;
    bool open = false;
    bool modal = true;
    /// Among the open dialogs. Differs from open only while openChanged() or zChanged() is being
    /// emitted.
    bool counted = false;
    /// Counts the changes of open: a change whose signal's handler has changed open again does not
    /// go on with its own remaining steps.
    int changes = 0;
    bool dying = false;
    QList<QPointer<QQuickItem>> disabledSiblings;
};

// Signals, and setEnabled() of siblings, run the application's code, which may destroy the dialog,
// or open or close it again: code after them checks the guard and the number of changes.

void DialogItem::Private::setOpen(bool value)
{
    if (open == value) {
        return;
    }
    open = value;
    const int change = ++changes;
    const QPointer<DialogItem> self(q);
    Q_EMIT q->openChanged();
    if (!self || changes != change) {
        return;
    }
    // Counted: the dialog is closing, or a handler of its closing has opened it again.
    if (counted) {
        giveBack();
    }
    if (self && open && !counted) {
        takeOver();
    }
}

void DialogItem::Private::takeOver()
{
    if (dying) {
        return;
    }
    const int change = changes;
    const QPointer<DialogItem> self(q);
    q->setZ(overlayz::dialog + openDialogs);
    if (!self || changes != change) {
        return;
    }
    counted = true;
    ++openDialogs;
    if (!modal || !q->parentItem()) {
        return;
    }
    QList<QPointer<QQuickItem>> siblings;
    const QList<QQuickItem *> children = q->parentItem()->childItems();
    for (QQuickItem *child : children) {
        if (child != q) {
            siblings.append(child);
        }
    }
    for (const QPointer<QQuickItem> &sibling : qAsConst(siblings)) {
        if (sibling && sibling->isEnabled()) {
            disabledSiblings.append(sibling);
            sibling->setEnabled(false);
            if (!self || changes != change) {
                return;
            }
        }
    }
}

void DialogItem::Private::giveBack()
{
    counted = false;
    --openDialogs;
    enableSiblings();
}

/// Enables the items of the list whatever modal is now: it may have changed since the opening. If
/// a sibling's handler destroys the dialog, its destructor enables the rest of the list.
void DialogItem::Private::enableSiblings()
{
    const QPointer<DialogItem> self(q);
    while (self && !counted && !disabledSiblings.isEmpty()) {
        const QPointer<QQuickItem> sibling = disabledSiblings.takeFirst();
        if (sibling) {
            sibling->setEnabled(true);
        }
    }
}

DialogItem::DialogItem(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setZ(overlayz::dialog);
    setEnabled(false);
    setFlag(ItemIsFocusScope);
}

DialogItem::~DialogItem()
{
    d->dying = true;
    leaveItemTree(this);
    if (d->counted) {
        d->giveBack();
    } else {
        d->enableSiblings();
    }
}

DialogItem::DialogTypes DialogItem::type() const
{
    return d->type;
}

void DialogItem::setType(DialogTypes type)
{
    if (d->type == type) {
        return;
    }
    d->type = type;
    Q_EMIT typeChanged();
}

bool DialogItem::isOpen() const
{
    return d->open;
}

bool DialogItem::isModal() const
{
    return d->modal;
}

void DialogItem::setModal(bool modal)
{
    if (d->modal == modal) {
        return;
    }
    d->modal = modal;
    Q_EMIT modalChanged();
}

void DialogItem::accept(const QVariant &result)
{
    const QPointer<DialogItem> self(this);
    setEnabled(false);
    if (self) {
        d->setOpen(false);
    }
    if (self) {
        Q_EMIT accepted(result);
    }
}

void DialogItem::accept()
{
    accept(QVariant());
}

void DialogItem::reject()
{
    const QPointer<DialogItem> self(this);
    setEnabled(false);
    if (self) {
        d->setOpen(false);
    }
    if (self) {
        Q_EMIT rejected();
    }
}

void DialogItem::show()
{
    const QPointer<DialogItem> self(this);
    setEnabled(true);
    if (self && takeActiveFocus(this)) {
        d->setOpen(true);
    }
    // Also when a handler has closed the dialog meanwhile; open is false then.
    if (self) {
        Q_EMIT opened();
    }
}

/// Does not call the base class, so that the dialog emits no windowChanged() on its way to the
/// content item. The move is queued: Qt Quick is still changing the item tree when it calls
/// this.
void DialogItem::itemChange(ItemChange change, const ItemChangeData &)
{
    if (change == ItemSceneChange) {
        QMetaObject::invokeMethod(this, "reparent", Qt::QueuedConnection);
    }
}

void DialogItem::reparent()
{
    if (window()) {
        setParentItem(window()->contentItem());
    }
}

} // namespace om::controls

// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/DialogItem.h"

#include <QPointer>
#include <QQuickWindow>

namespace om::controls {

namespace {

constexpr qreal lowestZ = 65535.0;

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
    /// Counts the changes of open: one that a handler makes leaves nothing to be done by the change
    /// that the handler was told of.
    int changes = 0;
    bool dying = false;
    QList<QPointer<QQuickItem>> disabledSiblings;
};

// Signals, and siblings that are disabled or enabled, run the application's code, which may destroy
// the dialog, or open or close it once more: what comes after them looks at the state anew.

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
    // Opened again by a handler of its own closing, the dialog is still counted.
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
    q->setZ(lowestZ + openDialogs);
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

/// Looks at the list, not at modal, which may have been changed since the dialog opened. A sibling
/// may destroy the dialog: its destructor then goes on with the list.
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
    setZ(lowestZ);
    setEnabled(false);
    setFlag(ItemIsFocusScope);
}

DialogItem::~DialogItem()
{
    d->dying = true;
    // Leaving the tree runs handlers, which may ask for what is in the record: it must not be left
    // to the base class, which goes when the record is gone.
    setParentItem(nullptr);
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
    // forceActiveFocus() begins with this, and would go on with a dialog that a handler of the
    // focus has destroyed.
    if (self) {
        setFocus(true);
    }
    if (self) {
        forceActiveFocus();
    }
    if (self) {
        d->setOpen(true);
    }
    // Also of a dialog that a handler has closed by now: open tells that.
    if (self) {
        Q_EMIT opened();
    }
}

/// Keeps the change to itself: the base class is not asked, so that the dialog, which moves on to
/// the content item, does not emit windowChanged(). The move waits for the event loop: the item
/// tree is still changing.
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

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

    DialogItem *const q;
    DialogTypes type = TypeNormal;
    bool open = false;
    bool modal = true;
    /// Among the open dialogs. Differs from open only while openChanged() is being emitted.
    bool counted = false;
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
    const QPointer<DialogItem> self(q);
    Q_EMIT q->openChanged();
    if (!self || open != value) {
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
    counted = true;
    q->setZ(lowestZ + openDialogs);
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
    const QPointer<DialogItem> self(q);
    for (const QPointer<QQuickItem> &sibling : qAsConst(siblings)) {
        if (sibling && sibling->isEnabled()) {
            disabledSiblings.append(sibling);
            sibling->setEnabled(false);
            if (!self || !counted) {
                return;
            }
        }
    }
}

/// Looks at the list, not at modal, which may have been changed since the dialog opened.
void DialogItem::Private::giveBack()
{
    counted = false;
    --openDialogs;
    const QPointer<DialogItem> self(q);
    while (!counted && !disabledSiblings.isEmpty()) {
        const QPointer<QQuickItem> sibling = disabledSiblings.takeFirst();
        if (sibling) {
            sibling->setEnabled(true);
            if (!self) {
                return;
            }
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
    if (d->counted) {
        d->giveBack();
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
    d->setOpen(false);
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
    d->setOpen(false);
    if (self) {
        Q_EMIT rejected();
    }
}

void DialogItem::show()
{
    const QPointer<DialogItem> self(this);
    setEnabled(true);
    forceActiveFocus();
    d->setOpen(true);
    // A handler of openChanged() may have closed the dialog by now.
    if (self && d->open) {
        Q_EMIT opened();
    }
}

/// Deliberately keeps the change to itself: the base class is not asked, and so the dialog never
/// emits windowChanged(). The move waits for the event loop: the item tree is still changing.
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

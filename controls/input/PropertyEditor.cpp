// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/PropertyEditor.h"

#include "controls/support/Teardown.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickTextDocument>
#include <QQuickWindow>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>
#include <limits>

namespace om::controls {

class PropertyEditor::Private
{
public:
    explicit Private(PropertyEditor *editor)
        : q(editor)
    {
    }

    void watch(QQuickWindow *window);
    void unwatch();
    void keyPressed(const QKeyEvent *event);
    void mousePressed(const QMouseEvent *event);

    PropertyEditor *const q;
    bool editing = false;
    QPointer<data::Document> document;
    QString property;
    /// The window that the filter is installed on; the editor may have left it since.
    QPointer<QQuickWindow> watchedWindow;
};

void PropertyEditor::Private::watch(QQuickWindow *window)
{
    watchedWindow = window;
    window->installEventFilter(q);
}

void PropertyEditor::Private::unwatch()
{
    if (watchedWindow) {
        watchedWindow->removeEventFilter(q);
    }
    watchedWindow.clear();
}

// The editor may be gone once a signal has been emitted: each emission is the last thing done.

void PropertyEditor::Private::keyPressed(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        Q_EMIT q->escapePressed();
        break;
    case Qt::Key_Tab:
        // Shift and Tab arrive as this or as Key_Backtab, depending on the platform.
        if (event->modifiers() & Qt::ShiftModifier) {
            Q_EMIT q->backTabPressed();
        } else {
            Q_EMIT q->tabPressed();
        }
        break;
    case Qt::Key_Backtab:
        Q_EMIT q->backTabPressed();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT q->enterPressed();
        break;
    case Qt::Key_Space:
        Q_EMIT q->spacePressed();
        break;
    default:
        break;
    }
}

void PropertyEditor::Private::mousePressed(const QMouseEvent *event)
{
    if (!editing) {
        return;
    }
    // contains() may call the application's containmentMask, which may destroy the editor.
    const QPointer<PropertyEditor> self(q);
    if (!q->contains(q->mapFromScene(event->windowPos())) && self) {
        q->setFocus(false);
    }
}

PropertyEditor::PropertyEditor(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    connect(this, &QQuickItem::activeFocusChanged, this, &PropertyEditor::handleFocusChange);
    setFlag(ItemIsFocusScope);
    setActiveFocusOnTab(true);
}

PropertyEditor::~PropertyEditor()
{
    // Destruction takes the focus away, but endEdit() must not be emitted for it.
    disconnect(this, &QQuickItem::activeFocusChanged, this, &PropertyEditor::handleFocusChange);
    d->unwatch();
    leaveItemTree(this);
}

data::Document *PropertyEditor::document() const
{
    return d->document;
}

void PropertyEditor::setDocument(data::Document *document)
{
    if (d->document == document) {
        return;
    }
    d->document = document;
    Q_EMIT documentChanged();
}

QString PropertyEditor::property() const
{
    return d->property;
}

void PropertyEditor::setProperty(const QString &property)
{
    if (d->property == property) {
        return;
    }
    d->property = property;
    Q_EMIT propertyChanged();
}

void PropertyEditor::setLineHeight(QQuickTextDocument *textDocument, double height)
{
    QTextDocument *const document = textDocument ? textDocument->textDocument() : nullptr;
    if (!document || document->isEmpty() || std::isnan(height)) {
        return;
    }
    const double percent =
        qBound(static_cast<double>(std::numeric_limits<int>::min()), std::floor(height * 100),
               static_cast<double>(std::numeric_limits<int>::max()));
    // Each edit has the document lay out what follows, and makes a step to be undone: all
    // paragraphs are one edit, whose signals come at its end.
    QTextCursor edit(document);
    edit.beginEditBlock();
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLineHeight(static_cast<int>(percent), QTextBlockFormat::ProportionalHeight);
        QTextCursor(block).setBlockFormat(format);
    }
    edit.endEditBlock();
}

bool PropertyEditor::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        d->keyPressed(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::MouseButtonPress:
        d->mousePressed(static_cast<QMouseEvent *>(event));
        break;
    default:
        break;
    }
    // No event is consumed, but a window that a handler has destroyed cannot get it any more.
    return receiver.isNull();
}

void PropertyEditor::handleFocusChange(bool focus)
{
    if (focus == d->editing) {
        return;
    }
    if (focus) {
        if (window()) {
            d->watch(window());
        }
        d->editing = true;
        Q_EMIT beginEdit();
        return;
    }
    d->unwatch();
    // An editor that loses focus by leaving its window stays in editing: with the focus in the next
    // window beginEdit() is not emitted a second time.
    if (window()) {
        d->editing = false;
    }
    Q_EMIT endEdit();
}

} // namespace om::controls

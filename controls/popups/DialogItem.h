// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>
#include <QVariant>

#include <memory>

namespace om::controls {

/// The base of a dialog inside the window: it moves to the top of the item tree as soon as it is in
/// a window, gets a z that grows with the number of open dialogs, and, when modal, disables its
/// siblings while it is open.
///
/// What a dialog looks like, and whether it is seen at all, is up to the document that uses it.
class DialogItem : public QQuickItem
{
    Q_OBJECT
    /// What the dialog is about; only stored, for the document to look at.
    Q_PROPERTY(DialogTypes type READ type WRITE setType NOTIFY typeChanged)
    /// Whether the dialog is open.
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
    /// Whether opening the dialog disables its siblings; counts at the moment of opening.
    Q_PROPERTY(bool modal READ isModal WRITE setModal NOTIFY modalChanged)

public:
    enum DialogType {
        TypeNormal = 0,
        TypeWarning = 1,
        TypeError = 2,
        TypeOk = 4
    };
    Q_DECLARE_FLAGS(DialogTypes, DialogType)
    Q_FLAG(DialogTypes)

    explicit DialogItem(QQuickItem *parent = nullptr);
    /// A dialog destroyed while it is open gives back what it disabled.
    ~DialogItem() override;

    DialogTypes type() const;
    void setType(DialogTypes type);
    bool isOpen() const;
    bool isModal() const;
    void setModal(bool modal);

    /// Closes the dialog with \a result. Of a closed dialog, too, accepted() is emitted.
    Q_INVOKABLE void accept(const QVariant &result);
    /// Closes the dialog with an undefined result.
    Q_INVOKABLE void accept();
    /// Closes the dialog without a result. Of a closed dialog, too, rejected() is emitted.
    Q_INVOKABLE void reject();
    /// Opens the dialog and gives it the focus. An open dialog gets the focus again, and opened()
    /// is emitted again.
    Q_INVOKABLE void show();

Q_SIGNALS:
    void opened();
    void accepted(const QVariant &result);
    void rejected();
    void typeChanged();
    void openChanged();
    void modalChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private Q_SLOTS:
    void reparent();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(DialogItem::DialogTypes)

} // namespace om::controls

// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlComponent>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// Marks the place in a layout where a popup, made from a component, opens above everything else.
///
/// The popup lives in an anchor item at the top of the window, which keeps to the marked place and
/// its rotation with every frame. Only the popup's `enabled` says whether it is shown: what it
/// looks like then is up to the component. A press outside hides the popup and still reaches what
/// is under the cursor.
class PopupAnchorItem : public QQuickItem
{
    Q_OBJECT
    /// What the popup is made of; the default property. A popup that exists already stays.
    Q_PROPERTY(QQmlComponent *popup READ popup WRITE setPopup NOTIFY popupChanged)
    /// The popup; made by the first show, kept across hide and show, destroyed with this item.
    /// Null while there is none, or when the component has failed or makes no item.
    Q_PROPERTY(QQuickItem *popupItem READ popupItem NOTIFY popupItemChanged)
    /// Whether the popup is shown.
    Q_PROPERTY(
        bool popupVisible READ isPopupVisible WRITE setPopupVisible NOTIFY popupVisibleChanged)
    /// Whether Escape and presses outside leave the popup shown.
    Q_PROPERTY(bool persistent READ isPersistent WRITE setPersistent NOTIFY persistentChanged)
    /// Whole pixels from the window's top to the marked place; this and the other two are kept up
    /// to date while the popup is shown.
    Q_PROPERTY(int distanceTop READ distanceTop NOTIFY distanceTopChanged)
    /// Whole pixels from the marked place to the window's bottom.
    Q_PROPERTY(int distanceBottom READ distanceBottom NOTIFY distanceBottomChanged)
    /// Whole pixels from the marked place to the window's right edge.
    Q_PROPERTY(int distanceRight READ distanceRight NOTIFY distanceRightChanged)
    Q_CLASSINFO("DefaultProperty", "popup")

public:
    explicit PopupAnchorItem(QQuickItem *parent = nullptr);
    ~PopupAnchorItem() override;

    QQmlComponent *popup() const;
    void setPopup(QQmlComponent *popup);
    QQuickItem *popupItem() const;
    bool isPopupVisible() const;
    /// Before the component is complete the value is stored, and the popup follows on completion.
    void setPopupVisible(bool visible);
    bool isPersistent() const;
    void setPersistent(bool persistent);
    int distanceTop() const;
    int distanceBottom() const;
    int distanceRight() const;

    /// Shows the popup, which is made first if there is none.
    Q_INVOKABLE void show();
    /// Hides the popup.
    Q_INVOKABLE void hide();

Q_SIGNALS:
    void popupChanged();
    void popupItemChanged();
    void popupVisibleChanged();
    void persistentChanged();
    void distanceTopChanged();
    void distanceBottomChanged();
    void distanceRightChanged();

protected:
    void componentComplete() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private Q_SLOTS:
    void updateAnchorPosition();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls

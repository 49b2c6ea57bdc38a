// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QQuickItem>

#include <memory>

class QQuickTextDocument;

namespace om::controls {

/// The core of an in-place editor for one property of a document. It edits nothing and shows
/// nothing itself: it carries document and property name for the QML inside it, and tells that QML
/// when editing begins and ends and which editing keys are pressed.
///
/// Editing lasts as long as the editor, a focus scope, has active focus. Meanwhile it watches the
/// window: no event is ever taken from its receiver, and a mouse press outside the editor takes the
/// focus away and so ends editing.
class PropertyEditor : public QQuickItem
{
    Q_OBJECT
    /// The document whose property is edited; null by default, not owned. Null once it is
    /// destroyed, without a signal.
    Q_PROPERTY(om::data::Document *document READ document WRITE setDocument NOTIFY documentChanged)
    /// The name of the property that is edited; empty by default.
    Q_PROPERTY(QString property READ property WRITE setProperty NOTIFY propertyChanged)

public:
    explicit PropertyEditor(QQuickItem *parent = nullptr);
    ~PropertyEditor() override;

    om::data::Document *document() const;
    void setDocument(om::data::Document *document);

    // They hide QObject's functions of the same names, which take a property's name.
    QString property() const;
    void setProperty(const QString &property);

    /// Gives each paragraph of \a textDocument a line height of \a height times its font's: 1.0 is
    /// 100 %, and what is less than a whole percent is cut off, never rounded: 1.15 gives 114 %, as
    /// its hundredfold is just below 115. A null document, an empty one (a single empty
    /// paragraph), and a height that is NaN, change nothing. All of it is one edit of the text.
    Q_INVOKABLE void setLineHeight(QQuickTextDocument *textDocument, double height);

Q_SIGNALS:
    void documentChanged();
    void propertyChanged();
    void beginEdit();
    void endEdit();
    void escapePressed();
    void tabPressed();
    void backTabPressed();
    void enterPressed();
    void spacePressed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void handleFocusChange(bool focus);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls

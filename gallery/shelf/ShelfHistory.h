// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>
#include <vector>

namespace om::gallery {

/// What was done, to be undone and done again.
class ShelfHistory : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY changed)
    /// What would be undone or done again, as "rename “a”"; empty when there is nothing.
    Q_PROPERTY(QString undoText READ undoText NOTIFY changed)
    Q_PROPERTY(QString redoText READ redoText NOTIFY changed)

public:
    using Action = std::function<void()>;

    explicit ShelfHistory(QObject *parent = nullptr);
    ~ShelfHistory() override;

    /// Does `redo`, and keeps it with the action that takes it back. What had been undone before is
    /// forgotten. A step that is asked for while another is done, undone or done again comes after
    /// that: a list that moves may end the editing of a name.
    void run(const QString &text, Action redo, Action undo);
    void clear();

    bool canUndo() const;
    bool canRedo() const;
    QString undoText() const;
    QString redoText() const;

    /// Without anything to undo or to do again, or while a step is done, they do nothing.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

Q_SIGNALS:
    /// Comes after what was done or undone.
    void changed();

private:
    struct Step
    {
        QString text;
        Action redo;
        Action undo;
    };
    /// Whether the history is still there after the \a action, and has not been cleared by it.
    bool perform(const Action &action);
    void runWaiting();

    std::vector<Step> m_steps;
    std::vector<Step> m_waiting;
    bool m_performing = false;
    size_t m_done = 0;
};

} // namespace om::gallery

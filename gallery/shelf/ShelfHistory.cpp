// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfHistory.h"

namespace om::gallery {

ShelfHistory::ShelfHistory(QObject *parent)
    : QObject(parent)
{
}

ShelfHistory::~ShelfHistory() = default;

void ShelfHistory::run(const QString &text, Action redo, Action undo)
{
    if (m_performing) {
        m_waiting.push_back({text, std::move(redo), std::move(undo)});
        return;
    }
    m_steps.resize(m_done);
    m_steps.push_back({text, std::move(redo), std::move(undo)});
    if (perform(m_steps.back().redo)) {
        ++m_done;
    }
    Q_EMIT changed();
    runWaiting();
}

void ShelfHistory::clear()
{
    m_waiting.clear();
    if (m_steps.empty()) {
        return;
    }
    m_steps.clear();
    m_done = 0;
    Q_EMIT changed();
}

bool ShelfHistory::canUndo() const
{
    return m_done > 0;
}

bool ShelfHistory::canRedo() const
{
    return m_done < m_steps.size();
}

QString ShelfHistory::undoText() const
{
    return canUndo() ? m_steps[m_done - 1].text : QString();
}

QString ShelfHistory::redoText() const
{
    return canRedo() ? m_steps[m_done].text : QString();
}

void ShelfHistory::undo()
{
    if (m_performing || !canUndo()) {
        return;
    }
    --m_done;
    perform(m_steps[m_done].undo);
    Q_EMIT changed();
    runWaiting();
}

void ShelfHistory::redo()
{
    if (m_performing || !canRedo()) {
        return;
    }
    if (perform(m_steps[m_done].redo)) {
        ++m_done;
    }
    Q_EMIT changed();
    runWaiting();
}

bool ShelfHistory::perform(const Action &action)
{
    // The action may clear the history, and itself with it.
    const Action own = action;
    m_performing = true;
    own();
    m_performing = false;
    return !m_steps.empty();
}

void ShelfHistory::runWaiting()
{
    while (!m_performing && !m_waiting.empty()) {
        Step next = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        run(next.text, std::move(next.redo), std::move(next.undo));
    }
}

} // namespace om::gallery

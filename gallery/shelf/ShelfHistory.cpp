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
    m_steps.resize(m_done);
    m_steps.push_back({text, std::move(redo), std::move(undo)});
    m_steps.back().redo();
    ++m_done;
    Q_EMIT changed();
}

void ShelfHistory::clear()
{
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
    if (!canUndo()) {
        return;
    }
    --m_done;
    m_steps[m_done].undo();
    Q_EMIT changed();
}

void ShelfHistory::redo()
{
    if (!canRedo()) {
        return;
    }
    m_steps[m_done].redo();
    ++m_done;
    Q_EMIT changed();
}

} // namespace om::gallery

// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <QTimer>

class QQuickItem;
class QQuickWindow;

namespace om::gallery {

/// Renders one page of the gallery after the other to "<name>.png" in a folder.
///
/// A picture is taken when no image of the page is loading any more, the page's own motion has
/// ended, and the page has come to rest: a frame looks like one a few animation steps before. Pages
/// that never do are taken after a few seconds.
class ScreenshotRun : public QObject
{
    Q_OBJECT

public:
    ScreenshotRun(QQuickWindow *window, const QString &folder, QObject *parent = nullptr);

    /// Whether the window grows with pages that are taller than it; it does unless set otherwise.
    void setTall(bool tall);
    /// Whether each item of a page that has a `pictureName` becomes a picture of that name instead
    /// of the page, which still does where it has no such item; they do not unless set otherwise.
    void setDemos(bool demos);
    void start(const QStringList &pages);

Q_SIGNALS:
    /// All pictures are made, or one could not be; `error` is empty or says why.
    void finished(const QString &error);

private:
    void nextPage();
    void handleFrame();
    bool save(const QImage &image);
    void fail(const QString &reason);

    QQuickWindow *const m_window;
    const QString m_folder;
    const int m_lowestHeight;
    bool m_tall = true;
    bool m_demos = false;
    QStringList m_pages;
    QString m_page;
    QImage m_previous;
    QElapsedTimer m_onPage;
    QElapsedTimer m_sincePrevious;
    QTimer m_watchdog;
    int m_frames = 0;
};

} // namespace om::gallery

// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/soak/Sandbox.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>
#include <QTimer>

using om::gallery::Shelf;

Sandbox::Sandbox()
{
    if (!m_folder.isValid() || !QDir(m_folder.path()).mkpath(QStringLiteral("empty"))) {
        qFatal("There is no place for the files");
    }
    fill();
}

void Sandbox::fill()
{
    const QDir from(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/gallery/samples"));
    QDir(path()).removeRecursively();
    QDir(m_folder.path()).mkpath(path());
    QDirIterator it(from.path(), QDir::AllEntries | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = path() + QLatin1Char('/') + from.relativeFilePath(source);
        if (it.fileInfo().isDir()) {
            QDir().mkpath(target);
        } else {
            QDir().mkpath(QFileInfo(target).path());
            QFile::copy(source, target);
        }
    }
}

void Sandbox::keep(Shelf *shelf)
{
    m_shelf = shelf;
    // Later: the shelf is not done yet when it says so. To save takes several steps of a person.
    connect(shelf, &Shelf::rootChanged, this,
            [this] { QTimer::singleShot(0, this, [this] { leadBack(); }); });
}

void Sandbox::leadBack()
{
    if (!m_renewing && m_shelf->address().toLocalFile() != path()) {
        m_shelf->open(QUrl::fromLocalFile(path()));
    }
}

void Sandbox::renew()
{
    const auto rests = [this] { return !m_shelf->isReading() && !m_shelf->isSaving(); };
    m_renewing = true;
    if (!QTest::qWaitFor(rests, 60000)) {
        qFatal("Shelf reads for ever");
    }
    m_shelf->open(QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("empty"))));
    fill();
    m_shelf->open(QUrl::fromLocalFile(path()));
    m_shelf->say(QString());
    m_renewing = false;
    if (!QTest::qWaitFor(rests, 60000)) {
        qFatal("Shelf reads for ever");
    }
}

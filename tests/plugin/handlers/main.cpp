// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Runs the rows of tst_handlers: for each provocation of a type, each signal and each moment (see
// Moment.h) that it brings about, and each action, the action inside of it. A row may end the
// process; its name has been written before.
//
//   handler_rows --types              writes the names of the types
//   handler_rows --actions            writes the names of the actions
//   handler_rows --attached           destroys an object that the engine has attached
//   handler_rows                      reads commands from standard input:
//     list TYPE                       which signals fire; no rows are run
//     run TYPE                        all rows
//     resume TYPE <tab> STEP <tab> ROW    those after row ROW of provocation number STEP
//     row TYPE <tab> STEP <tab> ROW       row ROW of provocation number STEP alone
//     withhold DEED                   no row does it from now on: "signal: action" or "provocation:
//                                     action"
//     known EMISSION                  what is done in each signal once has been done in this one
//
// Each line of output is a word and a text, parted by a tab: "class" and "declared" (a signal that
// the class has, a property that holds a component), "row", "fired", "once" (the number of the
// provocation that has the rows which an emission gets once, and the emission), "while" (when the
// row before acts: "synchronizing", "binding", "declaring", "losing a child"), "said" and "left"
// (what is wrong with it), "done".

#include "tests/plugin/handlers/Action.h"
#include "tests/plugin/handlers/Moment.h"
#include "tests/plugin/handlers/Provocation.h"
#include "tests/plugin/handlers/SignalHook.h"
#include "tests/plugin/handlers/Stage.h"
#include "tests/plugin/handlers/ToldItem.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/RegisteredTypes.h"

#include <QFile>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QQmlExpression>
#include <QRegularExpression>
#include <QSet>

#include <cstdio>
#include <set>
#include <typeinfo>

namespace {

void write(const char *word, const QString &text)
{
    std::printf("%s\t%s\n", word, qPrintable(text));
    std::fflush(stdout);
}

/// Warnings that the rows provoke and that are documented.
bool isAnnounced(const QString &text)
{
    static const QRegularExpression announced(QStringLiteral(
        "^Module size must be between|^Slider delegate must be|^Crosshair delegate must be"
        "|^Destroyed Draggable during drag!|^Drop handlers changed during drag operation"
        "|^No delegate present - TreeView cannot render tree"
        "|^QQmlComponent: Cannot create a component in an invalid context"
        "|^QXcbConnection: XCB error: [0-9]+ \\(Bad(Window|Match)\\)|^QStandardPaths: "));
    return text.contains(announced);
}

void report(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isAnnounced(text)) {
        write("said", text);
    }
}

/// A signal of one of the objects of a scene, or a moment of one.
struct Emission
{
    QString sender;
    QByteArray signature;
    bool isOfLibrary;
    bool isMoment;
    QString name() const { return sender + QLatin1Char('.') + QString::fromLatin1(signature); }
    bool operator<(const Emission &other) const
    {
        return std::tie(sender, signature) < std::tie(other.sender, other.signature);
    }
};

const QLatin1String attached("AttachedObject");

/// Destroys what Qt itself has attached to an item, and asks the engine for it again.
void deleteAttachedObject()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nItem { Keys.enabled: true }", QUrl());
    const std::unique_ptr<QObject> item(component.create());
    for (QObject *child : item->children()) {
        if (child->inherits("QQuickKeysAttached")) {
            delete child;
            break;
        }
    }
    QQmlExpression expression(qmlContext(item.get()), item.get(),
                              QStringLiteral("Keys.enabled = false"));
    expression.evaluate();
}

bool isWatched(const QMetaMethod &method)
{
    return method.methodType() == QMetaMethod::Signal && method.name() != "destroyed"
        && method.name() != "objectNameChanged";
}

const QMetaObject *declarerOf(const QMetaObject *meta, int method)
{
    while (meta->methodOffset() > method) {
        meta = meta->superClass();
    }
    return meta;
}

/// Whether a property of \a meta holds a component.
bool isComponent(const QMetaObject *meta, int property)
{
    return qstrcmp(meta->property(property).typeName(), "QQmlComponent*") == 0;
}

class Rows
{
public:
    Rows(const QString &type, const QSet<QString> &withheld, const QSet<QString> &known)
        : m_type(type)
        , m_withheld(withheld)
        , m_known(known)
    {
    }

    bool prepare()
    {
        if (!m_stage.load(m_type)) {
            return false;
        }
        m_isOfQt = !support::registeredTypes().contains(m_type);
        m_provocations = provocationsFor(m_stage);
        const QMetaObject *const meta = m_stage.subject()->metaObject();
        for (int i = 0; i < meta->propertyCount(); ++i) {
            if (isComponent(meta, i)) {
                const QMetaProperty property = meta->property(i);
                const QString name = QString::fromLatin1(property.name());
                m_componentProperties.insert(
                    name,
                    QString::fromLatin1(property.enclosingMetaObject()->className())
                        + QLatin1Char(' ') + name);
            }
        }
        m_seen.clear();
        m_stage.clear();
        takeStock();
        return true;
    }

    void runOne(size_t step, const QString &row)
    {
        const int index = rowNames(m_provocations.at(step), step, false).indexOf(row);
        if (index >= 0) {
            write("row", QStringLiteral("%1\t%2").arg(step).arg(row));
            m_rows.at(size_t(index))();
            finish();
        }
    }

    void run(size_t firstStep, const QString &afterRow, bool listOnly)
    {
        QString after = afterRow;
        for (size_t step = firstStep; step < m_provocations.size(); ++step) {
            const Provocation &provocation = m_provocations.at(step);
            const QStringList names = rowNames(provocation, step, listOnly);
            const int first = after.isEmpty() ? 0 : names.indexOf(after) + 1;
            after.clear();
            for (int i = first; i < names.size(); ++i) {
                write("row", QStringLiteral("%1\t%2").arg(step).arg(names.at(i)));
                m_rows.at(size_t(i))();
                finish();
            }
        }
    }

private:
    /// Provokes once and notes what fires; makes a row of each signal and action. Returns their
    /// names.
    QStringList rowNames(const Provocation &provocation, size_t step, bool listOnly)
    {
        write("row", QStringLiteral("%1\t%2: only looked at").arg(step).arg(provocation.name));
        m_rows.clear();
        std::set<Emission> emissions;
        provoke(provocation,
                [&](const Emission &emission, const QString &declarer, QObject *, bool) {
                    return [&emissions, emission, declarer] {
                        if (emissions.insert(emission).second) {
                            write("fired",
                                  declarer + QLatin1Char(' ')
                                      + QString::fromLatin1(emission.signature));
                        }
                    };
                });
        finish();
        QStringList names;
        for (const Emission &emission : emissions) {
            if (isQts(provocation, emission)) {
                continue;
            }
            // What an item of Qt bears in one place it need not bear in the next.
            const bool isAlways = provocation.isApart || m_isOfQt;
            const bool isNew =
                isForOnce(emission) && (isAlways || !m_known.contains(emission.name()));
            if (isNew && !isAlways) {
                m_known.insert(emission.name());
                write("once", QStringLiteral("%1\t%2").arg(step).arg(emission.name()));
            }
            for (const Action &action : actions()) {
                for (const bool subject : {false, true}) {
                    if (listOnly || (subject && !action.isForSubject)
                        || ((action.isOnce || emission.isMoment) && !isNew)) {
                        continue;
                    }
                    const QString signal = QString::fromLatin1(emission.signature);
                    const char *const target = action.target == Action::Surroundings ? ""
                        : subject ? " the subject"
                                  : " the sender";
                    const QString deed =
                        QStringLiteral(": %1%2").arg(action.name, QLatin1String(target));
                    if (m_withheld.contains(signal + deed)
                        || m_withheld.contains(provocation.name + deed)) {
                        continue;
                    }
                    names.append(
                        QStringLiteral("%1: in %2%3").arg(provocation.name, emission.name(), deed));
                    m_rows.push_back([this, &provocation, emission, &action, subject] {
                        runRow(provocation, emission, action, subject);
                    });
                }
            }
        }
        return names;
    }

    /// Whether no code of the library has to do with an emission: the scene's root hears of each
    /// child that comes and goes, and Qt tells it in the middle of its own work.
    bool isQts(const Provocation &provocation, const Emission &emission) const
    {
        if (provocation.makesTheScene) {
            return !emission.sender.startsWith(madeName());
        }
        if (emission.isMoment) {
            return false;
        }
        static const QList<QByteArray> aboutChildren = {
            "childrenChanged()", "visibleChildrenChanged()", "childrenRectChanged(QRectF)"};
        return aboutChildren.contains(emission.signature) || m_type == QLatin1String("MakerItem")
            || (provocation.isOfQt && !emission.isOfLibrary
                && (emission.sender == QLatin1String("subject")
                    || emission.sender == QLatin1String("stock")));
    }

    /// Whether what is done once in each signal, and all that is done in a moment, is done in this
    /// one: only when it is asked for, as it takes as long again as all else. What an item of Qt
    /// says beside the subject it says in every scene.
    static bool isForOnce(const Emission &emission)
    {
        static const bool isAsked = qEnvironmentVariableIsSet("OMBREL_HANDLERS_ALL");
        return isAsked
            && (emission.isOfLibrary || emission.isMoment
                || emission.sender == QLatin1String("subject"));
    }

    /// What is to be called in an emission of an object, that is in its destructor or not; the text
    /// names who has declared the signal.
    using HookMaker =
        std::function<SignalHook::Function(const Emission &, const QString &, QObject *, bool)>;

    void provoke(const Provocation &provocation, const HookMaker &makeHook)
    {
        if (!m_stage.load(m_type)) {
            return;
        }
        if (provocation.before) {
            provocation.before(m_stage);
            m_stage.settle();
        }
        m_hook = std::make_unique<SignalHook>();
        m_hooked.clear();
        m_stage.whenChanged = [this, makeHook] { hookNewObjects(makeHook); };
        handleMoments([this, makeHook](const Moment &moment) {
            const Emission emission{nameOf(moment.object), moment.name.toLatin1(), true, true};
            if (const auto hook =
                    makeHook(emission, declarerOf(moment), moment.object, moment.isEnd)) {
                hook();
            }
        });
        hookNewObjects(makeHook);
        provocation.run(m_stage);
        m_stage.settle();
        m_hook.reset();
        handleMoments({});
        m_stage.clear();
    }

    static QString madeName() { return QStringLiteral("what is made"); }

    static QString nameOf(const QObject *object)
    {
        if (const auto *const told = qobject_cast<const ToldItem *>(object)) {
            // One that begins has no properties yet.
            return QStringLiteral("%1 %2").arg(madeName(), told->role()).trimmed();
        }
        return object->objectName().isEmpty() ? plainClassName(object) : object->objectName();
    }

    /// "virtual" of what a document is asked; of an item that is made, the property that holds its
    /// component, with the class that has the property.
    QString declarerOf(const Moment &moment) const
    {
        const auto *const told = qobject_cast<const ToldItem *>(moment.object);
        return told ? m_componentProperties.value(told->role(), QStringLiteral("other"))
                    : QStringLiteral("virtual");
    }

    void hookNewObjects(const HookMaker &makeHook)
    {
        const auto senders = m_stage.senders();
        for (auto it = senders.cbegin(); it != senders.cend(); ++it) {
            QPointer<QObject> &known = m_hooked[it.key()];
            if (known) {
                continue;
            }
            known = it.value();
            const QMetaObject *const meta = known->metaObject();
            declare(meta);
            for (int i = 0; i < meta->methodCount(); ++i) {
                const QMetaMethod method = meta->method(i);
                if (isWatched(method)) {
                    const QString declarer =
                        QString::fromLatin1(::declarerOf(meta, i)->className());
                    const Emission emission{it.key(), method.methodSignature(),
                                            declarer.startsWith(QLatin1String("om::")), false};
                    if (auto hook = makeHook(emission, declarer, known, false)) {
                        m_hook->connectTo(known, i, std::move(hook));
                    }
                }
            }
        }
    }

    /// Writes the signals that classes of the library have, and the moments of what is made from
    /// their components, once a class.
    void declare(const QMetaObject *meta)
    {
        for (; meta; meta = meta->superClass()) {
            const QString name = QString::fromLatin1(meta->className());
            if (!name.startsWith(QLatin1String("om::controls::")) || m_seen.contains(name)) {
                continue;
            }
            m_seen.insert(name);
            write("class", name);
            for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
                if (isWatched(meta->method(i))) {
                    write("declared",
                          name + QLatin1Char(' ')
                              + QString::fromLatin1(meta->method(i).methodSignature()));
                }
            }
            for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
                for (const char *moment : {"completes", "onCompleted", "onDestruction"}) {
                    if (isComponent(meta, i)) {
                        write("declared",
                              QStringLiteral("%1 %2 %3")
                                  .arg(name, QLatin1String(meta->property(i).name()),
                                       QLatin1String(moment)));
                    }
                }
            }
        }
    }

    void runRow(const Provocation &provocation, const Emission &emission, const Action &action,
                bool atSubject)
    {
        bool done = false;
        provoke(
            provocation,
            [&](const Emission &found, const QString &declarer, QObject *object,
                bool isEnding) -> SignalHook::Function {
                if (found.name() != emission.name()) {
                    return {};
                }
                // A property that QML has declared changes while its binding is evaluated.
                const bool isBinding = declarer.contains(QLatin1String("_QML"));
                return [&, isBinding, isEnding, guarded = QPointer<QObject>(object),
                        type = &typeid(*object)] {
                    const QObject *const emitter = guarded;
                    QObject *const target = atSubject ? m_stage.subject() : guarded.data();
                    // Qt also emits from destructors, where the object is less than it was.
                    if (done || !target || !emitter || *type != typeid(*emitter)
                        || (action.target == Action::Item && !qobject_cast<QQuickItem *>(target))
                        || (action.isEnd && isEnding && target == emitter)
                        || (action.isEnd && plainClassName(target).endsWith(attached))) {
                        return;
                    }
                    done = true;
                    if (m_stage.isSynchronizing()) {
                        write("while", QStringLiteral("synchronizing"));
                    } else if (isBinding) {
                        write("while", QStringLiteral("binding"));
                    } else if (provocation.makesTheScene) {
                        write("while", QStringLiteral("declaring"));
                    } else if (m_stage.isLosing(m_stage.parentOf(target))) {
                        write("while", QStringLiteral("losing a child"));
                    }
                    action.run(m_stage, target, provocation);
                };
            });
    }

    /// Notes what lives between the rows. What the first ones leave for good, such as caches, is
    /// none of a row's.
    void takeStock()
    {
        m_living = support::livingObjects();
        m_engineCount = m_stage.engineCount();
    }

    /// Names what a row left behind.
    void finish()
    {
        m_stage.engine();
        if (m_stage.engineCount() != m_engineCount) {
            // The next engine has to have its caches, too.
            m_stage.load(m_type);
            m_stage.clear();
            m_engineCount = m_stage.engineCount();
        }
        // What JavaScript holds goes in rounds: each round lets go of what holds the next.
        for (int round = 0; round < 4 && support::livingObjects() != m_living; ++round) {
            m_stage.engine()->collectGarbage();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QStringList left = support::livingObjects();
        if (left != m_living) {
            const QStringList all = left;
            for (const QString &known : qAsConst(m_living)) {
                left.removeOne(known);
            }
            if (!left.isEmpty()) {
                write("left", left.join(QStringLiteral(", ")));
            }
            m_living = all;
        }
        const QStringList filters = support::eventFilters();
        if (!filters.isEmpty()) {
            write("left", filters.join(QStringLiteral(", ")));
        }
    }

    const QString m_type;
    const QSet<QString> m_withheld;
    Stage m_stage;
    std::vector<Provocation> m_provocations;
    std::vector<std::function<void()>> m_rows;
    std::unique_ptr<SignalHook> m_hook;
    QMap<QString, QPointer<QObject>> m_hooked;
    QStringList m_living;
    /// Whether the subject is there to show what Qt forbids.
    bool m_isOfQt = false;
    QSet<QString> m_seen;
    QSet<QString> m_known;
    /// By their names, with their classes.
    QHash<QString, QString> m_componentProperties;
    int m_engineCount = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--types") == 0) {
        for (const QString &type : support::registeredTypes()) {
            write("type", type);
        }
        return 0;
    }
    if (argc > 1 && qstrcmp(argv[1], "--actions") == 0) {
        for (const Action &action : actions()) {
            write("action", action.name);
        }
        return 0;
    }
    QGuiApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], "--attached") == 0) {
        deleteAttachedObject();
        return 0;
    }
    qInstallMessageHandler(report);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return 1;
    }
    QSet<QString> withheld;
    QSet<QString> known;
    for (;;) {
        const QString line = QString::fromUtf8(input.readLine()).trimmed();
        if (line.isEmpty()) {
            return 0;
        }
        const QString command = line.section(QLatin1Char(' '), 0, 0);
        const QStringList words = line.section(QLatin1Char(' '), 1).split(QLatin1Char('\t'));
        if (command == QLatin1String("withhold")) {
            withheld.insert(words.value(0));
            continue;
        }
        if (command == QLatin1String("known")) {
            known.insert(words.value(0));
            continue;
        }
        Rows rows(words.value(0), withheld, known);
        if (!rows.prepare()) {
            return 1;
        }
        if (command == QLatin1String("row")) {
            rows.runOne(words.value(1).toUInt(), words.value(2));
        } else {
            rows.run(words.value(1).toUInt(), words.value(2), command == QLatin1String("list"));
        }
        write("done", words.value(0));
    }
}

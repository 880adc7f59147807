// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/mdlGeneral.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace mdlGeneral {

QString strCurrentDir;

void TakeCurrentDirFrom(const QString& pickedFile)
{
    if (strCurrentDir.isEmpty())
        strCurrentDir = GetDirectory(pickedFile);
}

namespace {

// The last of either separator splits a path; -1 when there is none.
qsizetype lastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

// A trailing backslash added once.
void appendBackslash(QString& text)
{
    if (!text.isEmpty() && !text.endsWith(u'\\'))
        text += u'\\';
}

} // namespace

QString GetDirectory(const QString& path) { return path.left(lastSeparator(path) + 1); }

QString GetFileName(const QString& path) { return path.mid(lastSeparator(path) + 1); }

QString MakeRelativePath(const QString& target, const QString& base)
{
    if (target.isEmpty())
        return {};

    // Everything returned comes from lower-cased copies whose `/` became `\`.
    QString t = target.toLower().replace(u'/', u'\\');
    QString b = base.toLower().replace(u'/', u'\\');

    // Both are treated as rows of directories ending in a backslash.
    appendBackslash(b);
    appendBackslash(t);

    // The walk runs to one behind the shorter string, where a position past an end reads as
    // nothing, and remembers the last backslash both share. A difference at the very first
    // position does not end it, so another drive letter is lost.
    const qsizetype walkEnd = std::min(t.size(), b.size());
    qsizetype shared = 0;
    for (qsizetype i = 0; i <= walkEnd; ++i) {
        const QChar tc = i < t.size() ? t[i] : QChar();
        const QChar bc = i < b.size() ? b[i] : QChar();
        if (tc == bc && tc == u'\\')
            shared = i;
        else if (tc != bc && i > 0)
            break;
    }

    // Both start at the last shared backslash, that character included.
    t = t.mid(shared);
    b = b.mid(shared);

    // One leading backslash goes.
    if (b.startsWith(u'\\'))
        b.remove(0, 1);
    if (t.startsWith(u'\\'))
        t.remove(0, 1);

    // The backslash added to the target above goes again.
    appendBackslash(b);
    if (t.endsWith(u'\\'))
        t.chop(1);

    // One level up for each directory of the base not shared.
    return QStringLiteral("..\\").repeated(b.count(u'\\')) + t;
}

QString DoubleBackslashes(const QString& text)
{
    QString doubled = text;
    return doubled.replace(u'\\', QStringLiteral("\\\\"));
}

QString UndoubleBackslashes(const QString& text)
{
    // Left to right without overlap: three backslashes become two. A text without a pair is
    // handed back shared, without a copy.
    if (!text.contains(u"\\\\"))
        return text;
    QString single(text.size(), Qt::Uninitialized);
    QChar* out = single.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        *out++ = text[i];
        if (text[i] == u'\\' && i + 1 < text.size() && text[i + 1] == u'\\')
            ++i;
    }
    single.truncate(out - single.constData());
    return single;
}

QString StoredToNative(const QString& stored)
{
    QString native = stored;
    return native.replace(u'\\', QDir::separator());
}

namespace {

// The entry of `dir` named `component` without regard to case: an exact match
// first, then the first by byte order. Empty when there is none.
QString matchEntry(const QDir& dir, const QString& component)
{
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    if (entries.contains(component))
        return component;
    QString best;
    QByteArray bestBytes;
    for (const QString& entry : entries) {
        if (entry.compare(component, Qt::CaseInsensitive) != 0)
            continue;
        const QByteArray bytes = entry.toUtf8();
        if (best.isEmpty() || bytes < bestBytes) {
            best = entry;
            bestBytes = bytes;
        }
    }
    return best;
}

} // namespace

QString ResolveFileCase(const QString& path)
{
    if (path.isEmpty() || QFileInfo::exists(path))
        return path;

    const QString native = QDir::fromNativeSeparators(path);
    const bool absolute = native.startsWith(u'/');
    QString resolved = absolute ? QStringLiteral("/") : QString();
    const QStringList components = native.split(u'/', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < components.size(); ++i) {
        const QString& component = components[i];
        const QDir dir(resolved.isEmpty() ? QStringLiteral(".") : resolved);
        QString entry = component;
        // A drive ("c:") and the dot entries are taken as they stand.
        if (component != u"." && component != u".." && !(i == 0 && component.endsWith(u':'))) {
            entry = matchEntry(dir, component);
            if (entry.isEmpty())
                return path;
        }
        resolved += entry;
        if (i + 1 < components.size())
            resolved += u'/';
    }
    return QDir::toNativeSeparators(resolved);
}

} // namespace mdlGeneral

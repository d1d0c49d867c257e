#include "platform/qt_single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <unistd.h>

namespace melvane {

QtSingleInstance::QtSingleInstance(const std::string& lockFile) : lock_(QString::fromStdString(lockFile)) {
    lock_.setStaleLockTime(0);  // a place is free when its process is gone, never by age
}

bool QtSingleInstance::anotherRuns() {
    if (lock_.isLocked() || lock_.tryLock(0)) return false;
    return lock_.error() == QLockFile::LockFailedError;
}

std::string QtSingleInstance::usualPlace() {
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool usable = !session.isEmpty() && QFileInfo(session).isDir() && QFileInfo(session).isWritable();
    const QString folder = usable ? session : QDir::tempPath();
    return (folder + QStringLiteral("/melvane-%1.lock").arg(getuid())).toStdString();
}

}  // namespace melvane

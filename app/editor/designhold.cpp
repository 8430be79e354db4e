#include "app/editor/designhold.h"

#include <MorvalenCore/DesignManager.h>

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace designhold {

namespace {

template <typename Holds>
QString nameOfDesign(Holds holds)
{
    const DesignManager *manager = DesignManager::instance();
    const QStringList ids = manager->openDesignIds();
    for (const QString &id : ids) {
        const IDesign *design = manager->design(id);
        if (design && holds(*design))
            return design->name();
    }
    return {};
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(designhold)
};

QString clause(const QString &text, const QString &design)
{
    return design.isEmpty() ? QString() : text.arg(design);
}

} // namespace

QString asComponentFile(const QString &path)
{
    return clause(Texts::tr("it is the component file of the design \"%1\", which is open"),
                  nameOfDesign([&path](const IDesign &design) {
                      return QFileInfo(design.componentFileName()).canonicalFilePath() == path;
                  }));
}

QString asFileOfReadOnlyDesign(const QString &path)
{
    return clause(Texts::tr("it belongs to the design \"%1\", which is read-only"),
                  nameOfDesign([&path](const IDesign &design) {
                      return design.isReadOnly() && design.fileByActualPath(path, false);
                  }));
}

} // namespace designhold

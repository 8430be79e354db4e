#include "app/editor/designprotection.h"

#include <MorvalenCore/DesignManager.h>

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace designprotection {

namespace {

template <typename Protects>
QString nameOfDesign(Protects protects)
{
    const DesignManager *manager = DesignManager::instance();
    const QStringList ids = manager->openDesignIds();
    for (const QString &id : ids) {
        const IDesign *design = manager->design(id);
        if (design && protects(*design))
            return design->name();
    }
    return {};
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(designprotection)
};

QString clause(const QString &text, const QString &design)
{
    return design.isEmpty() ? QString() : text.arg(design);
}

} // namespace

QString ofComponentFile(const QString &path)
{
    return clause(Texts::tr("it is the component file of the design \"%1\", which is open"),
                  nameOfDesign([&path](const IDesign &design) {
                      return QFileInfo(design.componentFileName()).canonicalFilePath() == path;
                  }));
}

QString ofReadOnlyDesign(const QString &path)
{
    return clause(Texts::tr("it belongs to the design \"%1\", which is read-only"),
                  nameOfDesign([&path](const IDesign &design) {
                      return design.isReadOnly() && design.fileByActualPath(path, false);
                  }));
}

} // namespace designprotection

#include "app/builds/buildpages.h"

#include "app/builds/BuildConfigurationPage.h"
#include "app/editor/EditorArea.h"

#include <MorvalenCore/DesignManager.h>

using MorvalenCore::DesignManager;

void buildpages::show(EditorArea *area, const QString &designId, const QString &configurationName)
{
    auto *design = DesignManager::instance()->design(designId);
    if (!design)
        return;
    EditorPage *page = area->page(BuildConfigurationPage::keyOf(*design, configurationName));
    if (!page)
        page = BuildConfigurationPage::create(design, configurationName, area);
    if (page)
        area->addPage(page);
}

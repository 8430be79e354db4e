#pragma once

#include <QString>

class EditorArea;

// Pages of build configurations in the editor area.
namespace buildpages {

// Brings the page of a configuration to the front, made where there is none yet. Nothing when the
// configuration is gone.
void show(EditorArea *area, const QString &designId, const QString &configurationName);

} // namespace buildpages

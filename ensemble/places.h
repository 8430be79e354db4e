#pragma once

#include "ensemble/Answer.h"

namespace ensemble {

class Call;

// The folder that the program was called in.
void setFolderOfCall(const QString &path);

Answer folder(const Call &call);
Answer session(const Call &call);

} // namespace ensemble

#include "interp/commandsManager.h"

commandsManager *commandsManager::theInstance = nullptr;

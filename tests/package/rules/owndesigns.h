#pragma once

// The rules about designs of a host's own.
namespace owndesigns {

void nameIsItsOwn();
void nameCanBeChanged();
void foldersWhereTheManagerSays();
void foldersOfTheSession();

} // namespace owndesigns

#include "console/consolekeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace consolekeys {

namespace {

struct Row
{
    Qt::Key key;
    Action action;
};

// Every other key types.
constexpr Row rows[] = {
    {Qt::Key_Tab, Action::Complete},   {Qt::Key_Backspace, Action::DeleteBackwards},
    {Qt::Key_Return, Action::Run},     {Qt::Key_Enter, Action::Run},
    {Qt::Key_Home, Action::GoHome},    {Qt::Key_Up, Action::ShowOlder},
    {Qt::Key_Down, Action::ShowNewer}, {Qt::Key_End, Action::PassOn},
    {Qt::Key_Left, Action::PassOn},    {Qt::Key_Right, Action::PassOn},
};

// Pressed alone they leave cursor and selection where they are.
constexpr Qt::Key modifierKeys[] = {
    Qt::Key_Shift,   Qt::Key_Control,    Qt::Key_Meta,        Qt::Key_Alt,      Qt::Key_AltGr,
    Qt::Key_Super_L, Qt::Key_Super_R,    Qt::Key_Hyper_L,     Qt::Key_Hyper_R,  Qt::Key_CapsLock,
    Qt::Key_NumLock, Qt::Key_ScrollLock, Qt::Key_Mode_switch, Qt::Key_Multi_key};

bool isModifierKey(int key)
{
    return std::find(std::begin(modifierKeys), std::end(modifierKeys), key)
        != std::end(modifierKeys)
        || (key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Longsolidusoverlay);
}

bool isControlOnSelection(const QKeyEvent &event, const Place &place)
{
    return place.hasSelection && event.modifiers() == Qt::ControlModifier
        && !isModifierKey(event.key());
}

} // namespace

bool copiesFirst(const QKeyEvent &event, const Place &place)
{
    return isControlOnSelection(event, place) && !event.matches(QKeySequence::Cut)
        && event.matches(QKeySequence::Copy);
}

Action actionOf(const QKeyEvent &event, const Place &place)
{
    if (isModifierKey(event.key()))
        return Action::PassOn;
    if (isControlOnSelection(event, place)) {
        if (event.matches(QKeySequence::Cut))
            return Action::Cut;
        if (!event.matches(QKeySequence::Copy))
            return Action::PassWithoutEditing;
    }
    if (event.modifiers() & Qt::ControlModifier && event.key() == Qt::Key_C)
        return place.isInZone ? Action::Copy : Action::PassOn;
    const auto *row = std::find_if(std::begin(rows), std::end(rows),
                                   [&event](const Row &each) { return each.key == event.key(); });
    return row == std::end(rows) ? Action::Type : row->action;
}

} // namespace consolekeys

#include "console/consolekeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>
#include <optional>

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

// What a key does instead with a feature, where its condition holds.
struct FeatureRow
{
    QConsole::Feature feature;
    Qt::Key key;
    Qt::KeyboardModifier modifier;
    bool (*applies)(const Place &);
    Action action;
};

constexpr bool always(const Place &) { return true; }

constexpr FeatureRow featureRows[] = {
    {QConsole::RecallAsTyped, Qt::Key_Up, Qt::NoModifier,
     [](const Place &place) { return place.hasLineAbove; }, Action::GoUp},
    {QConsole::RecallAsTyped, Qt::Key_Down, Qt::NoModifier,
     [](const Place &place) { return place.hasLineBelow; }, Action::GoDown},
    {QConsole::RecallAsTyped, Qt::Key_Home, Qt::NoModifier, always, Action::GoToLineStart},
    {QConsole::RecallAsTyped, Qt::Key_Home, Qt::ShiftModifier, always, Action::SelectToLineStart},
    {QConsole::RecallAsTyped, Qt::Key_Return, Qt::ShiftModifier,
     [](const Place &place) { return place.isInZone; }, Action::BreakLine},
    {QConsole::IndentingTab, Qt::Key_Tab, Qt::NoModifier,
     [](const Place &place) { return place.isInIndentation; }, Action::Indent},
    {QConsole::ScrollingPages, Qt::Key_PageUp, Qt::NoModifier, always, Action::ScrollPageUp},
    {QConsole::ScrollingPages, Qt::Key_PageDown, Qt::NoModifier, always, Action::ScrollPageDown},
    {QConsole::SearchKeys, Qt::Key_R, Qt::ControlModifier, always, Action::SearchHistory},
    {QConsole::SearchKeys, Qt::Key_F, Qt::ControlModifier, always, Action::Find},
    {QConsole::SearchKeys, Qt::Key_L, Qt::ControlModifier, always, Action::ClearScreen},
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

std::optional<Action> featureOf(const QKeyEvent &event, const Place &place)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    for (const FeatureRow &row : featureRows) {
        if (place.features.testFlag(row.feature) && row.key == event.key()
            && modifiers == row.modifier && row.applies(place))
            return row.action;
    }
    return {};
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
    if (const std::optional<Action> action = featureOf(event, place))
        return *action;
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

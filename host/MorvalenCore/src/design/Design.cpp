#include "design/Design.h"

#include "log/hostlog.h"
#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

Design::Design(std::unique_ptr<ComponentDocument> document)
    : state(std::move(document)),
      files(state),
      folderItems(state),
      propertyItems(state),
      builds(state, files)
{
    state.changed = [this] { announceChange(); };
    setObjectName(state.name());
}

Design::~Design() = default;

void Design::attachTo(DesignRegistry *openDesigns)
{
    registry = openDesigns;
    workingFolder.keep();
}

void Design::announceChange()
{
    if (cycles > 0)
        changedInCycle = true;
    else if (registry)
        registry->designChanged(this);
}

QString Design::name() const { return state.name(); }

QString Design::vendor() const { return state.document().text(DesignField::Vendor); }

QString Design::library() const { return state.document().text(DesignField::Library); }

// The parts of a version are joined by dots in the component.
QString Design::version(const QString &separator) const
{
    QString version = state.document().text(DesignField::Version);
    return separator == u"."_s ? version : version.replace(u'.', separator);
}

QString Design::id(const QString &separator) const
{
    return vendor() + separator + library() + separator + name() + separator + version(separator);
}

void Design::setName(const QString &name) { setIdentity(DesignField::Name, name); }

void Design::setVendor(const QString &vendor) { setIdentity(DesignField::Vendor, vendor); }

void Design::setLibrary(const QString &library) { setIdentity(DesignField::Library, library); }

void Design::setIdentity(DesignField field, const QString &text)
{
    const QString oldText = state.document().text(field);
    if (text == oldText)
        return;
    const QString oldId = id(u"."_s);
    state.change(nullptr, [&](QString *error) {
        if (!state.document().setText(field, text, error))
            return false;
        *error = registry && id(u"."_s) != oldId ? registry->idRefusal(id(u"."_s)) : QString();
        if (!error->isEmpty()) {
            state.document().setText(field, oldText);
            return false;
        }
        setObjectName(name());
        if (registry)
            registry->designIdChanged(this, oldId);
        return true;
    });
}

void Design::setText(DesignField field, const QString &text)
{
    if (text == state.document().text(field))
        return;
    state.change(nullptr,
                 [&](QString *error) { return state.document().setText(field, text, error); });
}

QString Design::designType() const
{
    const QString type = state.document().text(DesignField::Type);
    return type.isEmpty() ? designTypeList().first().name : type;
}

QString Design::structureId() const { return state.document().text(DesignField::Structure); }

void Design::setStructureId(const QString &id)
{
    if (!id.isEmpty() && !findDesignStructure(id)) {
        logWarning(u"There is no design structure \"%1\""_s.arg(id));
        return;
    }
    setText(DesignField::Structure, id);
}

QString Design::description() const { return state.document().text(DesignField::Description); }

void Design::setDescription(const QString &description)
{
    setText(DesignField::Description, description);
}

QString Design::author() const { return state.document().text(DesignField::Author); }

void Design::setAuthor(const QString &author) { setText(DesignField::Author, author); }

bool Design::isReadOnly() const { return state.isReadOnly(); }

bool Design::isModified() const { return state.document().isModified(); }

void Design::setBusy(bool isBusy, const QString &reason, bool notify)
{
    if (busy == isBusy)
        return;
    busy = isBusy;
    if (isBusy && !reason.isEmpty())
        logInfo(u"The design \"%1\" is busy: %2"_s.arg(name(), reason));
    if (notify)
        announceChange();
}

void Design::startProcessingCycle() { ++cycles; }

void Design::endProcessingCycle(bool notify)
{
    if (cycles == 0 || --cycles > 0)
        return;
    if (notify && changedInCycle)
        announceChange();
    changedInCycle = false;
}

} // namespace MorvalenCore

#include "component/ComponentBuilds.h"

#include "component/ComponentTree.h"
#include "component/EditCheck.h"
#include "component/listalignment.h"

#include <Qtilities/commonends.h>

#include <QSet>

using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// How a list of things lies in child elements of one name.
template <typename T>
struct ListFormat
{
    QByteArrayView element;
    QString (*name)(const T &thing);
    T (*read)(const ComponentTree &tree, XmlNode node);
    // Into a new element, or over one that holds another thing; what is not ours stays in that.
    void (*write)(ComponentTree &tree, XmlNode node, const T &thing);
};

template <typename T>
QList<T> readList(const ComponentTree &tree, XmlNode parent, const ListFormat<T> &format)
{
    QList<T> list;
    for (const QList nodes = tree.ownChildren(parent, format.element); const XmlNode node : nodes)
        list += format.read(tree, node);
    return list;
}

template <typename T>
QStringList namesIn(const QList<T> &list, const ListFormat<T> &format, qsizetype from, qsizetype to)
{
    QStringList names;
    for (qsizetype i = from; i < to; ++i)
        names.append(format.name(list[i]));
    return names;
}

// Writes only what is between the equal things at both ends. The first thing comes behind `after`
// where there is none yet.
template <typename T>
void writeList(ComponentTree &tree, XmlNode parent, const ListFormat<T> &format,
               const QList<T> &wanted, XmlNode after)
{
    const QList<XmlNode> nodes = tree.ownChildren(parent, format.element);
    const QList<T> present = readList(tree, parent, format);
    const auto [head, tail] = Qtilities::Core::commonEnds(wanted, present);
    const QList<int> places = alignLists(namesIn(present, format, head, present.size() - tail),
                                         namesIn(wanted, format, head, wanted.size() - tail));
    if (head > 0)
        after = nodes[head - 1];
    else if (!nodes.isEmpty())
        after = tree.xml.previous(nodes.first());
    const QSet<int> staying(places.cbegin(), places.cend());
    for (qsizetype i = head; i < nodes.size() - tail; ++i) {
        if (!staying.contains(int(i - head)))
            tree.xml.remove(nodes[i]);
    }
    for (qsizetype i = 0; i < places.size(); ++i) {
        after =
            places[i] < 0 ? tree.addOwn(parent, format.element, after) : nodes[head + places[i]];
        format.write(tree, after, wanted[head + i]);
    }
}

const ListFormat<BuildMacro> macroFormat {
    .element = "macro",
    .name = [](const BuildMacro &macro) { return macro.name; },
    .read =
        [](const ComponentTree &tree, XmlNode node) {
            return BuildMacro {tree.attribute(node, "name"), tree.xml.text(node)};
        },
    .write =
        [](ComponentTree &tree, XmlNode node, const BuildMacro &macro) {
            tree.setAttribute(node, "name", macro.name);
            tree.xml.setText(node, macro.value);
        },
};

ListFormat<QString> pathFormat(QByteArrayView element)
{
    return {
        .element = element,
        .name = [](const QString &path) { return path; },
        .read = [](const ComponentTree &tree, XmlNode node) { return tree.xml.text(node); },
        .write = [](ComponentTree &tree, XmlNode node,
                    const QString &path) { tree.xml.setText(node, path); },
    };
}

const ListFormat<QString> inputFormat = pathFormat("input");
const ListFormat<QString> outputFormat = pathFormat("output");

const ListFormat<BuildStep> stepFormat {
    .element = "step",
    .name = [](const BuildStep &step) { return step.name; },
    .read =
        [](const ComponentTree &tree, XmlNode node) {
            return BuildStep {tree.attribute(node, "name"), tree.ownText(node, "command"),
                              readList(tree, node, inputFormat), readList(tree, node, outputFormat),
                              tree.attribute(node, "pool")};
        },
    .write =
        [](ComponentTree &tree, XmlNode node, const BuildStep &step) {
            tree.setAttribute(node, "name", step.name);
            tree.setAttribute(node, "pool", step.pool);
            const XmlNode command = tree.ensureOwn(node, "command");
            tree.xml.setText(command, step.command);
            writeList(tree, node, inputFormat, step.inputs, command);
            writeList(tree, node, outputFormat, step.outputs, tree.xml.last(node));
        },
};

Status check(const BuildDescription &build)
{
    EditCheck check;
    check.isGiven(build.name, u"name of a build configuration")
        .isCarried({build.name, build.targetPath});
    for (const BuildMacro &macro : build.macros)
        check.isCarried({macro.name, macro.value});
    for (const BuildStep &step : build.steps) {
        check.isCarried({step.name, step.command, step.pool});
        for (const QStringList &paths : {step.inputs, step.outputs}) {
            for (const QString &path : paths)
                check.isCarried({path});
        }
    }
    return check.status();
}

} // namespace

ComponentBuilds::ComponentBuilds(ComponentTree &componentTree) : tree(componentTree) { }

QList<std::uint32_t> ComponentBuilds::nodes() const
{
    return tree.ownChildren(tree.ownChild(tree.design(), "buildConfigurations"),
                            "buildConfiguration");
}

std::uint32_t ComponentBuilds::find(const QString &name) const
{
    for (const XmlNode node : nodes()) {
        if (tree.attribute(node, "name") == name)
            return node;
    }
    return 0;
}

QStringList ComponentBuilds::names() const
{
    QStringList list;
    for (const XmlNode node : nodes())
        list += tree.attribute(node, "name");
    return list;
}

QList<BuildDescription> ComponentBuilds::configurations() const
{
    QList<BuildDescription> list;
    for (const XmlNode node : nodes()) {
        list.append({tree.attribute(node, "name"), tree.attribute(node, "targetPath"),
                     readList(tree, node, macroFormat), readList(tree, node, stepFormat)});
    }
    return list;
}

QString ComponentBuilds::activeName() const
{
    return tree.attribute(tree.ownChild(tree.design(), "buildConfigurations"), "active");
}

Status ComponentBuilds::setActiveName(const QString &name)
{
    if (const Status refused = EditCheck().isCarried({name}).status(); !refused.isOk())
        return refused;
    if (name == activeName())
        return {};
    const XmlNode list = tree.ensureOwn(tree.ensureDesign(), "buildConfigurations");
    tree.setAttribute(list, "active", name);
    tree.prune(list);
    return {};
}

Status ComponentBuilds::write(const BuildDescription &configuration, const QString &formerName)
{
    if (const Status refused = check(configuration); !refused.isOk())
        return refused;
    XmlNode node = find(formerName.isEmpty() ? configuration.name : formerName);
    if (node == 0)
        node = tree.addOwn(tree.ensureOwn(tree.ensureDesign(), "buildConfigurations"),
                           "buildConfiguration");
    tree.setAttribute(node, "name", configuration.name);
    tree.setAttribute(node, "targetPath", configuration.targetPath);
    writeList(tree, node, macroFormat, configuration.macros, 0);
    writeList(tree, node, stepFormat, configuration.steps, tree.xml.last(node));
    return {};
}

Status ComponentBuilds::setTargetPath(const QString &name, const QString &targetPath)
{
    const XmlNode node = find(name);
    if (const Status refused =
            EditCheck().isThere(node != 0, u"build configuration").isCarried({targetPath}).status();
        !refused.isOk())
        return refused;
    tree.setAttribute(node, "targetPath", targetPath);
    return {};
}

bool ComponentBuilds::remove(const QString &name)
{
    const XmlNode node = find(name);
    if (node != 0)
        tree.removeAndPrune(node);
    return node != 0;
}

} // namespace MorvalenCore

#include "supervision/Table.h"

namespace Supervision {

Table::Table(const std::vector<Process> &processes)
{
    for (const Process &process : processes)
        byParent.emplace(process.parent, process);
}

std::vector<Process> Table::below(pid_t ancestor, pid_t leftOut) const
{
    std::vector<Process> found;
    const auto add = [&](pid_t parent) {
        for (const Process &child : childrenOf(parent)) {
            if (child.id != leftOut)
                found.push_back(child);
        }
    };
    add(ancestor);
    // A table is made of many moments: it may hold a cycle where a number was used again.
    for (size_t at = 0; at < found.size() && found.size() <= byParent.size(); ++at)
        add(found[at].id);
    return found;
}

std::vector<Process> Table::childrenOf(pid_t parent) const
{
    std::vector<Process> children;
    const auto [begin, end] = byParent.equal_range(parent);
    for (auto child = begin; child != end; ++child)
        children.push_back(child->second);
    return children;
}

} // namespace Supervision

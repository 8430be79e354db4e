#pragma once

#include <QByteArrayView>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace MorvalenCore {

// The namespace prefixes that are declared where a reader of a document stands. Its time does not
// grow with their number.
class DeclaredPrefixes
{
public:
    DeclaredPrefixes();

    // Goes into an element: names and values of its attributes in turn, and null behind them.
    // Returns the first prefix in its tag that nobody declared; empty when there is none.
    QByteArrayView enter(QByteArrayView name, const char *const *attributes);
    void leave();

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view> {}(text);
        }
    };
    struct Declaration
    {
        size_t depth = 0;
        std::string prefix;
    };

    void declare(const char *const *attributes);
    bool knows(QByteArrayView prefix) const;

    size_t depth = 0;
    std::vector<Declaration> declarations;
    // How many of the declarations are of each prefix.
    std::unordered_map<std::string, int, Hash, std::equal_to<>> counts;
    // One of them, which most elements have.
    mutable std::string foundLast;
};

} // namespace MorvalenCore

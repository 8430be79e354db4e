#include "ensemble/Call.h"

#include <algorithm>
#include <string_view>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace ensemble {

namespace {

// How many arguments a row wants.
struct Arity
{
    explicit Arity(const Row &row)
    {
        for (std::string_view rest(row.arguments); !rest.empty();) {
            const std::string_view name = rest.substr(0, rest.find(' '));
            rest.remove_prefix(std::min(name.size() + 1, rest.size()));
            ++most;
            if (!name.starts_with('?'))
                ++least;
            isOpen = name.ends_with("...?");
        }
    }

    qsizetype least = 0;
    qsizetype most = 0;
    bool isOpen = false;
};

} // namespace

// Goes through the words once, from left to right.
struct Call::Reader
{
    Reader(const Row &theRow, const QString &thePrefix, std::span<Tcl_Obj *const> theWords)
        : row(theRow),
          prefix(thePrefix),
          arity(theRow),
          words(theWords)
    {
    }

    Status read()
    {
        if (words.size() < std::size_t(arity.least))
            return misuse();
        while (call.arguments.size() < arity.least)
            takeArgument();
        const bool haveValues = std::all_of(row.options.begin(), row.options.end(),
                                            [](const Option &option) { return option.value; });
        if (haveValues && arity.most == arity.least + 1 && !arity.isOpen && words.size() % 2 == 1)
            takeArgument();
        while (!words.empty()) {
            if (const Status taken = takeWord(); !taken.isOk())
                return taken;
        }
        const bool isComplete =
            std::all_of(row.options.begin(), row.options.end(), [this](const Option &option) {
                return !option.isRequired || call.has(option.name);
            });
        return isComplete ? Status() : misuse();
    }

    Call call;

private:
    Status misuse() const
    {
        return Status::invalidArgument(
            u"wrong # args: should be \"%1\""_s.arg(usageOf(row, prefix)));
    }

    QString next() const { return Value(words.front()).text(); }

    void takeArgument()
    {
        call.arguments.append(next());
        words = words.subspan(1);
    }

    Status takeWord()
    {
        const QString word = next();
        if (!optionsEnded && word == u"--"_s) {
            optionsEnded = true;
            words = words.subspan(1);
            return {};
        }
        if (!optionsEnded && word.startsWith(u'-') && !row.options.empty())
            return takeOption(word);
        if (call.arguments.size() == arity.most && !arity.isOpen)
            return misuse();
        takeArgument();
        return {};
    }

    Status takeOption(const QString &word)
    {
        const auto option =
            std::find_if(row.options.begin(), row.options.end(),
                         [&](const Option &o) { return word == QLatin1StringView(o.name); });
        if (option != row.options.end())
            return takeOption(*option);
        return Status::invalidArgument(
            u"unknown option \"%1\": must be %2"_s.arg(word, choices(namesOf(row.options))));
    }

    Status takeOption(const Option &option)
    {
        words = words.subspan(1);
        if (!option.value) {
            call.options.insert_or_assign(option.name, Value::truth(true));
            return {};
        }
        if (words.empty()) {
            return Status::invalidArgument(u"option \"%1\" needs %2 behind it"_s.arg(
                QString::fromUtf8(option.name), QString::fromUtf8(option.value)));
        }
        call.options.insert_or_assign(option.name, Value(words.front()));
        words = words.subspan(1);
        return {};
    }

    const Row &row;
    const QString &prefix;
    const Arity arity;
    std::span<Tcl_Obj *const> words;
    bool optionsEnded = false;
};

Result<Call> Call::parse(const Row &row, const QString &prefix, std::span<Tcl_Obj *const> words)
{
    Reader reader(row, prefix, words);
    if (const Status read = reader.read(); !read.isOk())
        return read;
    return std::move(reader.call);
}

std::optional<QString> Call::text(std::string_view option) const
{
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second.text());
}

std::optional<Value> Call::value(std::string_view option) const
{
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

} // namespace ensemble

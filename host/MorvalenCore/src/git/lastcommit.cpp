#include "git/lastcommit.h"

#include <QDir>
#include <QFile>

#include <git2.h>

#include <memory>
#include <optional>

namespace {

template <auto Free>
struct Releaser
{
    template <typename Object>
    void operator()(Object *object) const
    {
        Free(object);
    }
};
using Repository = std::unique_ptr<git_repository, Releaser<git_repository_free>>;
using Commit = std::unique_ptr<git_commit, Releaser<git_commit_free>>;
using Tree = std::unique_ptr<git_tree, Releaser<git_tree_free>>;
using TreeEntry = std::unique_ptr<git_tree_entry, Releaser<git_tree_entry_free>>;
using Reference = std::unique_ptr<git_reference, Releaser<git_reference_free>>;
using Object = std::unique_ptr<git_object, Releaser<git_object_free>>;

// Calls of the library that make an object: the object, or null when the call failed.
template <typename Pointer, typename Call>
Pointer made(Call call)
{
    typename Pointer::pointer object = nullptr;
    if (call(&object) != 0)
        object = nullptr;
    return Pointer(object);
}

Repository repositoryOf(const QString &git)
{
    return made<Repository>([&](git_repository **repository) {
        return git_repository_open_ext(
            repository, QFile::encodeName(git).constData(),
            GIT_REPOSITORY_OPEN_NO_SEARCH | GIT_REPOSITORY_OPEN_NO_DOTGIT, nullptr);
    });
}

// The commit that the current branch, or a detached head, stands at.
Commit tipOf(git_repository *repository)
{
    const Reference head = made<Reference>(
        [&](git_reference **made) { return git_repository_head(made, repository); });
    if (!head)
        return {};
    const Object tip = made<Object>(
        [&](git_object **made) { return git_reference_peel(made, head.get(), GIT_OBJECT_COMMIT); });
    if (!tip)
        return {};
    return made<Commit>([&](git_commit **made) {
        return git_commit_lookup(made, repository, git_object_id(tip.get()));
    });
}

// What a commit holds at a path: the id of the file or folder; none when there is nothing.
std::optional<git_oid> idAt(const git_commit *commit, const QByteArray &path)
{
    const Tree tree = made<Tree>([&](git_tree **made) { return git_commit_tree(made, commit); });
    if (!tree)
        return {};
    if (path.isEmpty())
        return *git_tree_id(tree.get());
    const TreeEntry entry = made<TreeEntry>([&](git_tree_entry **made) {
        return git_tree_entry_bypath(made, tree.get(), path.constData());
    });
    if (!entry)
        return {};
    return *git_tree_entry_id(entry.get());
}

bool same(const std::optional<git_oid> &left, const std::optional<git_oid> &right)
{
    return left.has_value() == right.has_value() && (!left || git_oid_equal(&*left, &*right));
}

// Goes back from a commit as long as a parent holds the same at the path. Where branches were
// joined, the first parent that holds the same is where the content came from.
Commit lastChange(Commit commit, const QByteArray &path, const std::atomic_bool *cancelled)
{
    const std::optional<git_oid> content = idAt(commit.get(), path);
    if (!content)
        return {};
    while (!cancelled || !*cancelled) {
        Commit origin;
        for (unsigned i = 0; i < git_commit_parentcount(commit.get()) && !origin; ++i) {
            Commit parent = made<Commit>(
                [&](git_commit **made) { return git_commit_parent(made, commit.get(), i); });
            if (parent && same(idAt(parent.get(), path), content))
                origin = std::move(parent);
        }
        if (!origin)
            return commit;
        commit = std::move(origin);
    }
    return {};
}

QString abbreviatedId(const git_commit *commit)
{
    git_buf id = {};
    const auto *object = reinterpret_cast<const git_object *>(commit);
    if (git_object_short_id(&id, object) != 0)
        return {};
    const QString text = QString::fromLatin1(id.ptr);
    git_buf_dispose(&id);
    return text;
}

} // namespace

bool morvalenLastCommit(const QString &git, const QString &path, const std::atomic_bool *cancelled,
                        QString *id)
{
    static const int started = git_libgit2_init();
    const Repository repository = started < 0 ? Repository() : repositoryOf(git);
    if (!repository || git_repository_is_bare(repository.get()))
        return false;
    const QString top =
        QDir::cleanPath(QFile::decodeName(git_repository_workdir(repository.get())));
    if (path != top && !path.startsWith(top + u'/'))
        return false;
    Commit newest = tipOf(repository.get());
    if (!newest)
        return false;
    const Commit commit =
        lastChange(std::move(newest), QFile::encodeName(path.mid(top.size() + 1)), cancelled);
    if (!commit)
        return false;
    *id = abbreviatedId(commit.get());
    return true;
}

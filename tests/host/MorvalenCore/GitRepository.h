#pragma once

#include <git2.h>

#include <QFile>
#include <QStringList>

// A real repository with a history made step by step.
class GitRepository
{
public:
    explicit GitRepository(const QString &path)
    {
        git_libgit2_init();
        git_repository_init(&repository, QFile::encodeName(path).constData(), 0);
    }
    ~GitRepository()
    {
        git_repository_free(repository);
        git_libgit2_shutdown();
    }

    // Commits the working folder as it is; gives the full id.
    QString commit(const QByteArray &message, const QStringList &parents = {QStringLiteral("HEAD")})
    {
        git_index *index = nullptr;
        git_repository_index(&index, repository);
        git_index_add_all(index, nullptr, GIT_INDEX_ADD_FORCE, nullptr, nullptr);
        git_index_update_all(index, nullptr, nullptr, nullptr);
        git_index_write(index);
        git_oid treeId;
        git_index_write_tree(&treeId, index);
        git_index_free(index);

        git_tree *tree = nullptr;
        git_tree_lookup(&tree, repository, &treeId);
        QList<git_commit *> commits;
        for (const QString &name : parents) {
            git_object *object = nullptr;
            if (git_revparse_single(&object, repository, name.toLatin1().constData()) == 0)
                commits.append(reinterpret_cast<git_commit *>(object));
        }
        git_signature *me = nullptr;
        git_signature_new(&me, "Me", "me@example.org", 1700000000 + count++, 0);
        git_oid id;
        QList<const git_commit *> of(commits.cbegin(), commits.cend());
        const int failed =
            git_commit_create(&id, repository, "HEAD", me, me, nullptr, message.constData(), tree,
                              size_t(of.size()), of.data());
        git_signature_free(me);
        git_tree_free(tree);
        for (git_commit *parent : commits)
            git_commit_free(parent);
        return failed ? QString() : QString::fromLatin1(git_oid_tostr_s(&id));
    }

    // Stages everything without a commit.
    void stage()
    {
        git_index *index = nullptr;
        git_repository_index(&index, repository);
        git_index_add_all(index, nullptr, GIT_INDEX_ADD_FORCE, nullptr, nullptr);
        git_index_write(index);
        git_index_free(index);
    }

    // Puts HEAD and the working folder back to an earlier commit, for another branch from there.
    void goBackTo(const QString &id)
    {
        git_object *object = nullptr;
        git_revparse_single(&object, repository, id.toLatin1().constData());
        git_reset(repository, object, GIT_RESET_HARD, nullptr);
        git_object_free(object);
    }

private:
    git_repository *repository = nullptr;
    int count = 0;
};

#include "cleaner/finders/BKTreeService.h"

#include "cleaner/core/Fatal.h"

#include <algorithm>

BKTreeService::Node::Node(QList<qint64> value, QByteArray name)
    : value(std::move(value)), name(std::move(name))
{}

qint64 BKTreeService::Node::distance(const QList<qint64> &term) const
{
    if (term.size() < value.size())
        fatalStop(QStringLiteral("a hash of %1 values compared with one of %2")
                      .arg(term.size())
                      .arg(value.size()));
    qint64 d = 0;
    for (qsizetype i = 0; i < value.size(); ++i)
        d += value[i] != term[i] ? 1 : 0;
    return d;
}

void BKTreeService::Node::add(const QList<qint64> &term, const QByteArray &newName)
{
    // Iterative: the depth depends on the insertion order, which no rule balances.
    Node *node = this;
    for (;;) {
        const qint64 d = node->distance(term);
        if (d == 0) {
            // A name inside the node's own is dropped on purpose.
            if (!node->name.contains(newName) && !node->sameName.contains(newName))
                node->sameName.append(newName);
            return;
        }
        std::unique_ptr<Node> &child = node->children[d];
        if (!child) {
            child = std::make_unique<Node>(term, newName);
            return;
        }
        node = child.get();
    }
}

void BKTreeService::Node::query(const QList<qint64> &term, const QByteArray &queryName,
                                qint64 threshold, QSet<QByteArray> &results)
{
    const qint64 d = distance(term);
    if (d <= threshold && !hasChoose) {
        results.insert(name);
        for (const QByteArray &same : std::as_const(sameName))
            results.insert(same);
        hasChoose = true;
    }
    const qint64 low = std::max<qint64>(1, d - threshold);
    const qint64 high = d + threshold;
    if (high < low)
        fatalStop(QStringLiteral("a similarity query with threshold %1").arg(threshold));
    // Chosen nodes are still walked: their subtrees may hold unchosen ones.
    for (auto it = children.lower_bound(low); it != children.end() && it->first <= high; ++it)
        it->second->query(term, queryName, threshold, results);
}

void BKTreeService::insert(const QList<qint64> &term, const QByteArray &name)
{
    if (!root)
        root = std::make_unique<Node>(term, name);
    else
        root->add(term, name);
}

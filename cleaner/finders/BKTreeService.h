#pragma once

#include <QByteArrayList>
#include <QList>
#include <QSet>
#include <QString>
#include <map>
#include <memory>
#include <optional>

// A Burkhard-Keller tree over integer vectors under the Hamming distance.
// Each node remembers whether a query has handed it out, so successive
// queries carve the pictures into disjoint groups. Not locked: all adds run
// on one thread, and the queries after them on one thread.
class BKTreeService {
public:
    class Node {
    public:
        Node(QList<qint64> value, QByteArray name);

        QList<qint64> value;
        QByteArray name;
        QByteArrayList sameName;                          // further paths with exactly this vector
        std::map<qint64, std::unique_ptr<Node>> children; // keyed by distance to this node
        bool hasChoose = false;

        // Distance counted over this node's own length; a shorter term is a
        // programming fault that stops the program.
        qint64 distance(const QList<qint64> &term) const;
        void add(const QList<qint64> &term, const QByteArray &name);
        // Collects the paths of every node not yet chosen within threshold of
        // term and marks them chosen. `name` is carried along, never matched.
        // threshold must be at least 1: 0 stops the program on an exact match.
        void query(const QList<qint64> &term, const QByteArray &name, qint64 threshold,
                   QSet<QByteArray> &results);
    };

    std::unique_ptr<Node> root;
    qint64 count = 0; // kept as a field; nobody maintains it

    // The caller's part of the design: a new root, else an add below it.
    void insert(const QList<qint64> &term, const QByteArray &name);
};

// The vantage-point tree's types, declared beside the BK tree; nothing builds
// or searches one.
class VPTreeService {
public:
    template <typename Element> struct Point {
        qint64 d = 0;
        Element point;
        bool operator<(const Point &other) const { return d < other.d; }
        bool operator>(const Point &other) const { return d > other.d; }
        bool operator==(const Point &other) const { return d == other.d; }
        bool operator<=(const Point &other) const { return !(*this > other); }
        bool operator>=(const Point &other) const { return !(*this < other); }
    };
    template <typename Element> struct VPNode {
        std::optional<Element> vpPoint;
        QList<Element> points;
        std::optional<qint64> middle;
        std::shared_ptr<VPNode> leftChildren;
        std::shared_ptr<VPNode> rightChildren;
    };
    template <typename Element> struct VPTree {
        std::shared_ptr<VPNode<Element>> firstNode;
    };
    template <typename Element> struct VPTreeResultQueue {
        struct Item {
            qint64 distance = 0;
            Element item;
        };
        QList<Item> items;
        std::optional<qint64> limit;
    };
};

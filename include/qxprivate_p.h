// Base of the private blocks: a virtual destructor and a pointer to the public object.
#pragma once

template <typename Owner>
class QxPrivate {
public:
    QxPrivate() = default;
    virtual ~QxPrivate() = default;
    QxPrivate(const QxPrivate &) = delete;
    QxPrivate &operator=(const QxPrivate &) = delete;

    /// The public object; null until its constructor has created the block.
    Owner *owner = nullptr;
};

// Objects that announce their changes.
#pragma once

#include <functional>
#include <memory>

namespace appkitglue {

/// Keeps a subscription alive; it ends with this token. Movable only. May outlive the observed object.
class Subscription {
public:
    Subscription() = default;
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

private:
    friend class ObservableObject;
    explicit Subscription(std::shared_ptr<void> entry) : m_entry(std::move(entry)) {}
    std::shared_ptr<void> m_entry;
};

/// Announces changes to any number of subscribers. For one thread.
class ObservableObject {
public:
    ObservableObject();
    virtual ~ObservableObject();
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;

    /// Calls `changed` at each announcement, in the order of the subscriptions, until the returned token dies.
    [[nodiscard]] Subscription subscribe(std::function<void()> changed);

protected:
    /// Tells all subscribers of a change. They may subscribe, end subscriptions (then a subscriber that has not been
    /// told yet is not), destroy this object, or change it: such a change is announced when all have been told of
    /// this one.
    void announce();

private:
    struct Subscribers;
    std::shared_ptr<Subscribers> m_subscribers;
};

} // namespace appkitglue

#include "ObservableObject.h"

#include <vector>

namespace appkitglue {

struct ObservableObject::Subscribers {
    using Entry = std::function<void()>;
    std::vector<std::weak_ptr<Entry>> entries;
    bool announcing = false;
    bool again = false;
    bool alive = true;

    void tellAll() {
        std::erase_if(entries, [](const auto& entry) { return entry.expired(); });
        // A copy: subscribers may come and go meanwhile. Locked one by one: one that ended is not told.
        for (const auto& weakEntry : std::vector(entries)) {
            if (!alive)
                return;
            if (const auto entry = weakEntry.lock())
                (*entry)();
        }
    }
};

ObservableObject::ObservableObject() : m_subscribers(std::make_shared<Subscribers>()) {}

ObservableObject::~ObservableObject() {
    m_subscribers->alive = false;
}

Subscription ObservableObject::subscribe(std::function<void()> changed) {
    auto entry = std::make_shared<Subscribers::Entry>(std::move(changed));
    m_subscribers->entries.push_back(entry);
    return Subscription(std::move(entry));
}

void ObservableObject::announce() {
    const auto subscribers = m_subscribers; // outlives this object if a subscriber destroys it
    if (subscribers->announcing) {
        subscribers->again = true;
        return;
    }
    subscribers->announcing = true;
    do {
        subscribers->again = false;
        subscribers->tellAll();
    } while (subscribers->again && subscribers->alive);
    subscribers->announcing = false;
}

} // namespace appkitglue

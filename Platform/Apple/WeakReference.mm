// Zeroing weak references on macOS: those of the object runtime.
#import "WeakReference.h"

// The runtime's support for weak references, as the ABI of automatic reference counting documents it.
extern "C" {
id objc_initWeak(id *location, id value);
id objc_loadWeakRetained(id *location);
void objc_destroyWeak(id *location);
}

namespace platform {

struct WeakControl {
    explicit WeakControl(id object) { objc_initWeak(&location, object); }
    ~WeakControl() { objc_destroyWeak(&location); }
    WeakControl(const WeakControl &) = delete;
    WeakControl &operator=(const WeakControl &) = delete;

    id location = nil;
};

WeakReference::WeakReference(id object) : control_(object != nil ? std::make_shared<WeakControl>(object) : nullptr) {}

id WeakReference::loadRetained() const {
    return control_ != nullptr ? objc_loadWeakRetained(&control_->location) : nil;
}

} // namespace platform

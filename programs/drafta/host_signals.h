// What signals of the system mean to the host.
#pragma once

namespace drafta {

class Host;

/// While it lives, SIGINT breaks off what the host runs; SIGTERM and SIGHUP make it leave. Signals that the
/// program was started to ignore stay ignored. One object at a time.
class HostSignals {
public:
    /// `host` outlives the object.
    explicit HostSignals(Host& host);
    HostSignals(const HostSignals&) = delete;
    HostSignals& operator=(const HostSignals&) = delete;
    ~HostSignals();

    /// The signal that made the host leave; 0 for none.
    int ending() const noexcept;
};

} // namespace drafta

#include "import/xml/WatchedParse.h"

#include <condition_variable>
#include <csignal>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "import/xml/EventBatch.h"

namespace ipc2581::detail {
namespace {

// A source that counts what is read of it.
class CountedSource final : public ByteSource {
public:
    CountedSource(ByteSource & source, Watch watch) : m_source(source), m_watch(std::move(watch)) {}

    std::size_t Read(std::span<char> room) override
    {
        const std::size_t count = m_source.Read(room);
        m_count += count;
        m_watch(m_count);
        return count;
    }
    void Rewind() override
    {
        m_source.Rewind();
        m_count = 0;
    }
    [[nodiscard]] std::size_t Size() const override { return m_source.Size(); }

private:
    ByteSource & m_source;
    Watch m_watch;
    std::size_t m_count = 0;
};

// A batch on its way from the thread of the parser to that of the listener.
struct Parcel {
    EventBatch events;
    std::size_t read = 0;
};
using ParcelPtr = std::unique_ptr<Parcel>;

// Hands parcels over. There are a few of them, which go round.
class Exchange {
public:
    // For the parser: gives a full parcel away for an empty one. Null once the listener has gone.
    ParcelPtr Give(ParcelPtr full)
    {
        std::unique_lock lock(m_mutex);
        m_full.push_back(std::move(full));
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_hasLeft || !m_empty.empty(); });
        if (m_hasLeft) {
            return nullptr;
        }
        ParcelPtr empty = std::move(m_empty.back());
        m_empty.pop_back();
        return empty;
    }
    void GiveLast(ParcelPtr last)
    {
        const std::lock_guard lock(m_mutex);
        if (last != nullptr) {
            m_full.push_back(std::move(last));
        }
        m_hasEnded = true;
        m_changed.notify_all();
    }

    // For the listener: gives an empty parcel back for the next full one. Null at the end.
    ParcelPtr Take(ParcelPtr empty)
    {
        std::unique_lock lock(m_mutex);
        if (empty != nullptr) {
            m_empty.push_back(std::move(empty));
            m_changed.notify_all();
        }
        m_changed.wait(lock, [this] { return m_hasEnded || !m_full.empty(); });
        if (m_full.empty()) {
            return nullptr;
        }
        ParcelPtr full = std::move(m_full.front());
        m_full.pop_front();
        return full;
    }
    void Leave()
    {
        const std::lock_guard lock(m_mutex);
        m_hasLeft = true;
        m_changed.notify_all();
    }

    void Add(ParcelPtr empty) { m_empty.push_back(std::move(empty)); }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<ParcelPtr> m_full;
    std::vector<ParcelPtr> m_empty;
    bool m_hasEnded = false;
    bool m_hasLeft = false;
};

// The listener in the thread of the parser.
class ParcelWriter final : public XmlListener {
public:
    struct ListenerLeft {};

    explicit ParcelWriter(Exchange & exchange) : m_exchange(exchange), m_parcel(std::make_unique<Parcel>()) {}

    // Hands on how much has been read even where there is little to tell of it.
    void WatchRead(std::size_t bytes)
    {
        constexpr std::size_t most = std::size_t(1) << 20;
        m_parcel->read = bytes;
        if (bytes - m_given > most) {
            Give();
        }
    }

    void Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes) override
    {
        m_parcel->events.AddOpen(name, line, attributes);
        GiveIfFull();
    }
    void Text(std::string_view text) override
    {
        m_parcel->events.AddText(text);
        GiveIfFull();
    }
    // Needs next to no room, so that the next tag or text may hand on what is full.
    void Close() override { m_parcel->events.AddClose(); }
    // What has been told so far, also where the parse has ended early; null once the listener has gone.
    ParcelPtr Last() { return std::move(m_parcel); }

private:
    void GiveIfFull()
    {
        if (m_parcel->events.IsFull()) {
            Give();
        }
    }
    void Give()
    {
        m_given = m_parcel->read;
        m_parcel = m_exchange.Give(std::move(m_parcel));
        if (m_parcel == nullptr) {
            throw ListenerLeft();
        }
        m_parcel->read = m_given;
    }

    Exchange & m_exchange;
    ParcelPtr m_parcel;
    std::size_t m_given = 0;
};

// No signal is handled in a thread that is begun while it lives, since a host handles its signals in its own.
class SignalsBlocked {
public:
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked & operator=(const SignalsBlocked &) = delete;
#if defined(__unix__) || defined(__APPLE__)
    SignalsBlocked()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~SignalsBlocked()
    {
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }

private:
    sigset_t m_before = {};
#else
    SignalsBlocked() = default;
#endif
};

// The thread of the parser, which ends soon when the listener leaves.
class ParserThread {
public:
    ParserThread(ByteSource & source, WordTable & words, Exchange & exchange) : m_exchange(exchange)
    {
        const SignalsBlocked blocked;
        m_thread = std::thread([&source, &words, this] { Run(source, words); });
    }
    ParserThread(const ParserThread &) = delete;
    ParserThread & operator=(const ParserThread &) = delete;
    ~ParserThread() { Join(); }

    // Throws what has ended the parse.
    void End()
    {
        Join();
        if (m_thrown != nullptr) {
            std::rethrow_exception(m_thrown);
        }
    }

private:
    void Run(ByteSource & source, WordTable & words)
    {
        ParcelPtr last;
        try {
            ParcelWriter writer(m_exchange);
            CountedSource counted(source, [&](std::size_t bytes) { writer.WatchRead(bytes); });
            try {
                ParseXml(counted, words, writer);
            }
            catch (const ParcelWriter::ListenerLeft &) {
            }
            catch (...) {
                m_thrown = std::current_exception();
            }
            last = writer.Last();
        }
        catch (...) {
            m_thrown = std::current_exception();
        }
        m_exchange.GiveLast(std::move(last));
    }
    void Join()
    {
        m_exchange.Leave();
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    Exchange & m_exchange;
    std::exception_ptr m_thrown;
    std::thread m_thread;
};

// The thread, if there is one to be had.
std::unique_ptr<ParserThread> BeginThread(ByteSource & source, WordTable & words, Exchange & exchange)
{
    try {
        return std::make_unique<ParserThread>(source, words, exchange);
    }
    catch (const std::system_error &) {
        return nullptr;
    }
}

bool ParseInTwoThreads(ByteSource & source, WordTable & words, XmlListener & listener, const Watch & watch)
{
    constexpr int parcels = 2;
    Exchange exchange;
    for (int i = 0; i < parcels; ++i) {
        exchange.Add(std::make_unique<Parcel>());
    }
    const std::unique_ptr<ParserThread> parser = BeginThread(source, words, exchange);
    if (parser == nullptr) {
        return false;
    }
    for (ParcelPtr parcel = exchange.Take(nullptr); parcel != nullptr; parcel = exchange.Take(std::move(parcel))) {
        parcel->events.TellAgain(listener);
        parcel->events.Clear();
        watch(parcel->read);
    }
    parser->End();
    return true;
}

}  // namespace

void ParseWatched(ByteSource & source, WordTable & words, XmlListener & listener, const Watch & watch, Threads threads)
{
    if (threads == Threads::Two && ParseInTwoThreads(source, words, listener, watch)) {
        return;
    }
    CountedSource counted(source, watch);
    ParseXml(counted, words, listener);
}

}  // namespace ipc2581::detail

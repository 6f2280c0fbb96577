#include "import/xml/WatchedParse.h"

#include <csignal>
#include <exception>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

#include "import/xml/AheadReader.h"
#include "import/xml/EventBatch.h"
#include "import/xml/Exchange.h"

namespace ipc2581::detail {
namespace {

// Counts what is read.
class CountedReader final : public ByteReader {
public:
    CountedReader(ByteReader & source, Watch watch) : m_source(source), m_watch(std::move(watch)) {}

    std::size_t Read(std::span<char> room) override
    {
        const std::size_t count = m_source.Read(room);
        m_count += count;
        m_watch(m_count);
        return count;
    }

private:
    ByteReader & m_source;
    Watch m_watch;
    std::size_t m_count = 0;
};

// A batch on its way from the thread of the parser to that of the listener.
struct Parcel {
    EventBatch events;
    std::size_t read = 0;
};
using ParcelPtr = std::unique_ptr<Parcel>;

// The listener in the thread of the parser.
class ParcelWriter final : public XmlListener {
public:
    struct ListenerLeft {};

    explicit ParcelWriter(Exchange<Parcel> & exchange) : m_exchange(exchange), m_parcel(std::make_unique<Parcel>()) {}

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

    Exchange<Parcel> & m_exchange;
    ParcelPtr m_parcel;
    std::size_t m_given = 0;
};

// Null where it is not worth it, or no thread can be had.
std::unique_ptr<ByteReader> BeginAhead(ByteSource & source)
{
    if (!source.IsWorthReadingAhead()) {
        return nullptr;
    }
    try {
        return std::make_unique<AheadReader>(source);
    }
    catch (const std::system_error &) {
        return nullptr;
    }
}

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

// The thread of the parser, which ends soon when the listener leaves. Those that it begins handle no signal either.
class ParserThread {
public:
    ParserThread(ByteSource & source, WordTable & words, Exchange<Parcel> & exchange) : m_exchange(exchange)
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
            const std::unique_ptr<ByteReader> ahead = BeginAhead(source);
            CountedReader counted(ahead == nullptr ? source : *ahead,
                                  [&](std::size_t bytes) { writer.WatchRead(bytes); });
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

    Exchange<Parcel> & m_exchange;
    std::exception_ptr m_thrown;
    std::thread m_thread;
};

// The thread, if there is one to be had.
std::unique_ptr<ParserThread> BeginThread(ByteSource & source, WordTable & words, Exchange<Parcel> & exchange)
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
    Exchange<Parcel> exchange;
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
    CountedReader counted(source, watch);
    ParseXml(counted, words, listener);
}

}  // namespace ipc2581::detail

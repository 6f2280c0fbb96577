#ifndef IPC2581_IMPORT_XML_EXCHANGE_H
#define IPC2581_IMPORT_XML_EXCHANGE_H

#include <condition_variable>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace ipc2581::detail {

// Hands full items from one thread to another and empty ones back. There are a few of them, which go round. Neither
// side takes memory for it: the C library would keep a large part of the address space for a thread that does.
template <typename Item>
class Exchange {
public:
    using ItemPtr = std::unique_ptr<Item>;

    // For who fills them: gives a full one away for an empty one. Null once the other side has gone.
    ItemPtr Give(ItemPtr full)
    {
        std::unique_lock lock(m_mutex);
        m_full.push_back(std::move(full));
        Tell(lock);
        m_changed.wait(lock, [this] { return m_hasLeft || !m_empty.empty(); });
        if (m_hasLeft) {
            return nullptr;
        }
        ItemPtr empty = std::move(m_empty.back());
        m_empty.pop_back();
        return empty;
    }
    // Null is nothing but the end.
    void GiveLast(ItemPtr last)
    {
        const std::lock_guard lock(m_mutex);
        if (last != nullptr) {
            m_full.push_back(std::move(last));
        }
        m_hasEnded = true;
        m_changed.notify_all();
    }

    // For who empties them: gives an empty one back for the next full one. Null at the end.
    ItemPtr Take(ItemPtr empty)
    {
        std::unique_lock lock(m_mutex);
        if (empty != nullptr) {
            m_empty.push_back(std::move(empty));
            Tell(lock);
        }
        m_changed.wait(lock, [this] { return m_hasEnded || !m_full.empty(); });
        if (m_full.empty()) {
            return nullptr;
        }
        ItemPtr full = std::move(m_full.front());
        m_full.erase(m_full.begin());
        return full;
    }
    void Leave()
    {
        const std::lock_guard lock(m_mutex);
        m_hasLeft = true;
        m_changed.notify_all();
    }

    // Before either side begins, which may bring one more each.
    void Add(ItemPtr empty)
    {
        m_empty.push_back(std::move(empty));
        m_empty.reserve(m_empty.size() + 2);
        m_full.reserve(m_empty.size() + 2);
    }

private:
    // Who is woken would only wait again for a mutex that is held.
    void Tell(std::unique_lock<std::mutex> & lock)
    {
        lock.unlock();
        m_changed.notify_one();
        lock.lock();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<ItemPtr> m_full;
    std::vector<ItemPtr> m_empty;
    bool m_hasEnded = false;
    bool m_hasLeft = false;
};

}  // namespace ipc2581::detail

#endif

#pragma once

#include <QDateTime>
#include <QFileInfo>
#include <list>
#include <memory>
#include <mutex>

namespace vellora {

/// What was read from files, kept while they stay as they are. Any thread.
template <class Value>
class FileCache {
public:
    /// @param maxBytes  The least recently used values go once all weigh more than this.
    explicit FileCache(qsizetype maxBytes) : m_maxBytes(maxBytes) {}

    /// The value of a file, read by `load(path)` unless it is there already; `load` returns null
    /// for a file that it cannot read, which is not kept. `weigh(value)` says its bytes.
    template <class Load, class Weigh>
    std::shared_ptr<const Value> get(const QString& path, Load load, Weigh weigh) {
        const QFileInfo file(path);
        if (!file.isFile()) {
            return nullptr;
        }
        const State state{file.lastModified(), file.size()};
        std::shared_ptr<const Value> value = find(path, state);
        if (value == nullptr) {
            value = load(path);
            if (value != nullptr) {
                add({path, state, value, weigh(*value)});
            }
        }
        return value;
    }

private:
    struct State {
        QDateTime changed;
        qint64 size;
        bool operator==(const State&) const = default;
    };
    struct Entry {
        QString path;
        State state;
        std::shared_ptr<const Value> value;
        qsizetype bytes;
    };

    std::shared_ptr<const Value> find(const QString& path, const State& state) {
        const std::lock_guard lock(m_mutex);
        for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
            if (entry->path != path) {
                continue;
            }
            if (entry->state == state) {
                m_entries.splice(m_entries.begin(), m_entries, entry);
                return entry->value;
            }
            m_bytes -= entry->bytes;
            m_entries.erase(entry);
            break;
        }
        return nullptr;
    }

    void add(Entry entry) {
        const std::lock_guard lock(m_mutex);
        m_bytes += entry.bytes;
        m_entries.push_front(std::move(entry));
        while (m_bytes > m_maxBytes && m_entries.size() > 1) {
            m_bytes -= m_entries.back().bytes;
            m_entries.pop_back();
        }
    }

    const qsizetype m_maxBytes;
    std::mutex m_mutex;
    std::list<Entry> m_entries;  // the most recently used first
    qsizetype m_bytes = 0;
};

}  // namespace vellora

#pragma once

// An event with one argument, told to any number of subscribers. A list with tombstones: while the
// event fires, an entry that leaves is only set to null and a new one waits beside the list, so
// that indices stay valid whatever a subscriber does.

#include <KTRCL_DataTypes/Export.h>

#include <algorithm>
#include <cstddef>
#include <vector>

/// One who hears an event. Derive from it and override OnFire.
///
/// A subscriber that is destroyed must have been unsubscribed before; doing so in its own
/// destructor, even while the event fires, is safe.
template <typename T>
class KTRCL_DATATYPES_EXPORT GXEvent1ParamSubscriber {
 public:
  // The order of the virtual operations is part of the binary interface.

  /// Hears one firing.
  virtual void OnFire(T argument) = 0;

  virtual ~GXEvent1ParamSubscriber() = default;
};

/// A multicast event with one argument, delivered in subscription order on the caller's thread.
///
/// Borrows its subscribers. It cannot be copied, since a subscriber could not know whom to leave.
/// Requires: the event outlives its own firing.
///
/// While the event fires, subscribers may subscribe others or themselves, unsubscribe any and
/// destroy themselves after unsubscribing, and fire it again:
///   (1) one who has left is skipped at once, in the running firing too;
///   (2) one who is added hears the first firing that starts after the outermost running one has
///   ended; (3) a firing inside a firing goes to the subscribers of the outermost one that have not
///   left; (4) the same subscriber added twice hears twice.
/// An exception from OnFire ends the firing and reaches the caller of Fire; the event stays usable.
///
///     GXEvent1Param<const GXString&> trace;
///     trace.Subscribe(&printer);
///     trace.Fire(GXString("different number of arcs"));
template <typename T>
class KTRCL_DATATYPES_EXPORT GXEvent1Param {
 public:
  using Subscriber = GXEvent1ParamSubscriber<T>;

  GXEvent1Param() = default;
  GXEvent1Param(const GXEvent1Param&) = delete;
  GXEvent1Param& operator=(const GXEvent1Param&) = delete;

  /// Adds a subscriber behind the others. A null pointer is accepted and never called.
  void Subscribe(Subscriber* subscriber) {
    if (firings_ > 0) {
      // Room for all of them now: what settles behind a firing must not fail.
      subscribers_.reserve(subscribers_.size() + pending_.size() + 1);
      pending_.push_back(subscriber);
    } else {
      subscribers_.push_back(subscriber);
    }
  }

  /// Removes every entry of a subscriber, additions that still wait included, so that it may be
  /// destroyed next. One who is not subscribed is no error.
  void Unsubscribe(Subscriber* subscriber) {
    pending_.erase(std::remove(pending_.begin(), pending_.end(), subscriber), pending_.end());
    if (firings_ > 0) {
      std::replace(subscribers_.begin(), subscribers_.end(), subscriber,
                   static_cast<Subscriber*>(nullptr));
    } else {
      subscribers_.erase(std::remove(subscribers_.begin(), subscribers_.end(), subscriber),
                         subscribers_.end());
    }
  }

  /// Calls OnFire of every subscriber.
  void Fire(T argument) {
    const Firing firing(*this);
    // The vector neither grows nor shrinks until the outermost firing ends.
    for (std::size_t i = 0; i < subscribers_.size(); ++i) {
      if (subscribers_[i] != nullptr) {
        subscribers_[i]->OnFire(argument);
      }
    }
  }

 private:
  // Counts the running firings; the end of the last one settles what was asked for meanwhile, also
  // when an exception ends it.
  class Firing {
   public:
    explicit Firing(GXEvent1Param& event) : event_(event) { ++event_.firings_; }
    Firing(const Firing&) = delete;
    Firing& operator=(const Firing&) = delete;
    ~Firing() {
      if (--event_.firings_ == 0) {
        event_.Settle();
      }
    }

   private:
    GXEvent1Param& event_;
  };

  void Settle() {
    Subscriber* const gone = nullptr;
    subscribers_.erase(std::remove(subscribers_.begin(), subscribers_.end(), gone),
                       subscribers_.end());
    subscribers_.insert(subscribers_.end(), pending_.begin(), pending_.end());
    pending_.clear();
  }

  std::vector<Subscriber*> subscribers_;
  std::vector<Subscriber*> pending_;
  int firings_ = 0;
};

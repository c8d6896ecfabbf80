// An event that remembers every text fired through it.
//
//     support::RecordingEvent trace;
//     GXLAContour::HaveSameGeometry(a, b, ..., trace.Event());
//     EXPECT_EQ(trace.Texts().back(), "...");
#pragma once

#include <KTRCL_DataTypes/GXEvent.h>
#include <KTRCL_DataTypes/GXString.h>

#include <string>
#include <vector>

namespace support {

/// Subscriber that keeps the texts it hears, in order.
class RecordingSubscriber : public GXEvent1ParamSubscriber<const GXString&> {
 public:
  void OnFire(const GXString& text) override { texts_.push_back(text.Str()); }

  const std::vector<std::string>& Texts() const { return texts_; }

  /// All texts, one per line.
  std::string Joined() const {
    std::string all;
    for (const std::string& text : texts_) {
      all += text + '\n';
    }
    return all;
  }

  void Forget() { texts_.clear(); }

 private:
  std::vector<std::string> texts_;
};

/// An event with one such subscriber.
class RecordingEvent {
 public:
  RecordingEvent() { event_.Subscribe(&subscriber_); }
  ~RecordingEvent() { event_.Unsubscribe(&subscriber_); }
  RecordingEvent(const RecordingEvent&) = delete;
  RecordingEvent& operator=(const RecordingEvent&) = delete;

  GXEvent1Param<const GXString&>* Event() { return &event_; }
  const std::vector<std::string>& Texts() const { return subscriber_.Texts(); }
  std::string Joined() const { return subscriber_.Joined(); }
  void Forget() { subscriber_.Forget(); }

 private:
  RecordingSubscriber subscriber_;
  GXEvent1Param<const GXString&> event_;
};

}  // namespace support

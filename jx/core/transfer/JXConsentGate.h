// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXSendFilter.h"
#include "jx/core/storage/JXStopMarks.h"
#include "jx/core/transfer/JXNetworkManager.h"

namespace jx {

/// Keeps the decisions about consent in this process: of each ServerSide at its start, and the
/// stops and enablings since. A decision about a source (the site ID and source key of a
/// ServerSide) applies to its requests, also to those of earlier processes. Not synchronised:
/// JXNetworkManager calls it with its lock held.
class JXConsentGate {
 public:
  /// Sets the recorded stops, when the core starts.
  /// If they are not complete, every source without a mark counts as stopped.
  void setMarks(std::vector<JXStopMark> marks, bool areComplete = true) {
    marks_ = std::move(marks);
    marksAreComplete_ = areComplete;
  }

  /// Call this before the ServerSide can execute an event. `mostStops` is the largest number of
  /// stops stored with a queued request of the source.
  void started(const void* serverSide, std::uint32_t source, JXStartState state,
               std::uint16_t mostStops);
  /// Call this when the ServerSide sends to another source.
  void moved(const void* serverSide, std::uint32_t source, std::uint16_t mostStops);
  void ended(const void* serverSide) { serverSides_.erase(serverSide); }
  /// Sets whether later requests of the ServerSide are sent despite stops.
  void setAlwaysEnabled(const void* serverSide, bool isAlwaysEnabled);

  /// Stops every ServerSide that is not always enabled, and requests of no ServerSide. A recorded
  /// stop holds until `enable`, in later processes too; one that is not recorded is a state of the
  /// manager.
  void stop(bool isRecorded);
  /// Enables every ServerSide, and removes the recorded stops of their sources. If the application
  /// set a state of the manager, earlier requests that no ServerSide of this process decides for
  /// are sent too, unless a stop was recorded for them.
  void enable();
  /// Ends `stop`, and sends earlier requests that no ServerSide of this process decides for.
  void release();

  /// The origin of a request of a ServerSide, or of any other sender.
  struct Origin {
    JXRequestOrigin stored;
    bool awaitsDecision = false;
  };
  Origin originOf(const void* sender) const;
  std::shared_ptr<const JXSendFilter> filter() const;
  /// Returns whether requests of a ServerSide are held because it is not enabled.
  bool isPaused() const;
  /// Returns the recorded stops that changed since the last call; 0 stops: removed.
  std::vector<JXStopMark> takeChangedMarks() { return std::exchange(changedMarks_, {}); }

 private:
  using Earlier = JXSendFilter::Earlier;

  struct Member {
    std::uint32_t source = 0;
    JXSendPolicy policy = JXSendPolicy::Unknown;
    Earlier earlier = Earlier::All;  ///< None until it is enabled if it started disabled
  };
  struct Source {
    Earlier earlier = Earlier::All;
    std::uint16_t stops = 0;  ///< stored with new requests
    bool obeysStops = false;  ///< one of its ServerSides is not always enabled
  };

  void claim(const Member& member, std::uint16_t mostStops);
  std::uint16_t markedStops(std::uint32_t source) const;
  void setMark(std::uint32_t source, std::uint16_t stops);
  void recordStop(std::uint32_t source, const Source& state);

  std::map<const void*, Member> serverSides_;
  std::map<std::uint32_t, Source> sources_;
  std::vector<JXStopMark> marks_;
  bool marksAreComplete_ = true;
  std::vector<JXStopMark> changedMarks_;
  bool isStopped_ = false;
  bool stopIsRecorded_ = false;
  bool hasManagerState_ = false;  ///< the application decides without a ServerSide
  bool sendsUnknown_ = false;
};

}  // namespace jx

// tiers_rollback.h - the tiers of a channel as they were, for an edit that is left by an exception:
// half of it would be neither what the user had nor what was asked for.
#pragma once

#include <exception>
#include <utility>

#include "document/channel.h"
#include "document/label.h"

namespace cantorix {

class TiersRollback {
 public:
  explicit TiersRollback(CChannel& channel) : channel_(channel), before_(channel.tiers) {}
  ~TiersRollback() {
    if (isLeftByException()) channel_.tiers = std::move(before_);
  }
  TiersRollback(const TiersRollback&) = delete;
  TiersRollback& operator=(const TiersRollback&) = delete;

  bool isLeftByException() const { return std::uncaught_exceptions() > exceptions_; }

 private:
  CChannel& channel_;
  Tiers before_;
  const int exceptions_ = std::uncaught_exceptions();
};

}  // namespace cantorix

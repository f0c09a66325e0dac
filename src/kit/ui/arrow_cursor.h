#pragma once

// While a person is asked something, no hourglass: the arrow for as long as it lives.
class FrecciaNormale {
  public:
    FrecciaNormale();
    ~FrecciaNormale();
    FrecciaNormale(const FrecciaNormale&) = delete;
    FrecciaNormale& operator=(const FrecciaNormale&) = delete;

  private:
    bool mCera;
};

""""Did you mean": the names close to one that a definition doesn't know.

The same rules as the C++ header optkw_suggest.hpp, so that the tool and both
bindings offer the same names:

- texts are compared folded: ASCII letters in lower case, a blank as "_";
- a candidate's distance is its edit distance from the typed text, an
  exchange of two neighbouring characters counting as one edit; a typed text
  whose words begin the candidate's words, word for word ("it_lim" for
  "iteration_limit"), is at distance 1;
- a candidate is offered when its distance is at most a third of the typed
  text's length (at least 1) and below that length, and it isn't the typed
  text itself but for case; at most three, the nearest first, candidates at
  the same distance in the order given.
"""

from typing import Iterable, List, Set, Tuple


def _lower(text: str) -> str:
    return "".join(chr(ord(c) + 32) if "A" <= c <= "Z" else c for c in text)


def _folded(text: str) -> str:
    return _lower(text).replace(" ", "_")


def _distance(a: str, b: str) -> int:
    d = [[0] * (len(b) + 1) for _ in range(len(a) + 1)]
    for i in range(len(a) + 1):
        d[i][0] = i
    for j in range(len(b) + 1):
        d[0][j] = j
    for i in range(1, len(a) + 1):
        for j in range(1, len(b) + 1):
            d[i][j] = min(d[i - 1][j] + 1, d[i][j - 1] + 1,
                          d[i - 1][j - 1] + (0 if a[i - 1] == b[j - 1] else 1))
            if i > 1 and j > 1 and a[i - 1] == b[j - 2] and a[i - 2] == b[j - 1]:
                d[i][j] = min(d[i][j], d[i - 2][j - 2] + 1)
    return d[len(a)][len(b)]


def _abbreviates(typed: str, candidate: str) -> bool:
    short, long = typed.split("_"), candidate.split("_")
    return len(short) == len(long) and all(
        word and whole.startswith(word) for word, whole in zip(short, long))


def closest_names(typed: str, candidates: Iterable[str], most: int = 3) -> List[str]:
    """The candidates close enough to `typed` to be what was meant, nearest first."""
    folded = _folded(typed)
    allowed = max(1, len(folded) // 3)
    near: List[Tuple[int, int, str]] = []
    seen: Set[str] = set()
    for order, candidate in enumerate(candidates):
        other = _folded(candidate)
        if other in seen:
            continue
        seen.add(other)
        if _lower(candidate) == _lower(typed):
            continue
        distance = 1 if _abbreviates(folded, other) else min(_distance(folded, other),
                                                              allowed + 1)
        if distance <= allowed and distance < len(folded):
            near.append((distance, order, candidate))
    near.sort(key=lambda entry: entry[:2])
    return [candidate for _, _, candidate in near[:most]]


def did_you_mean(names: List[str]) -> str:
    """'did you mean "a", "b" or "c"?'; empty for no names."""
    if not names:
        return ""
    quoted = [f'"{name}"' for name in names]
    listed = quoted[0] if len(quoted) == 1 else ", ".join(quoted[:-1]) + " or " + quoted[-1]
    return f"did you mean {listed}?"

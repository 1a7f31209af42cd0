"""Why a judge of tag_rule.py reads something else after an edit, although nothing is wrong, and why a write is refused."""

import fnmatch

# (shapes, edits, judges, keys, what): the reason. Alternatives are parted by "|".
REASONS = {
}


def fits(text, patterns):
    return any(fnmatch.fnmatchcase(text, one) for one in patterns.split("|"))


class ReasonTable:
    def __init__(self):
        self.reasons = REASONS
        self.used = set()

    def excuses(self, fault):
        facts = (fault.shape, fault.edit, fault.judge, fault.key, fault.what)
        found = [reason for reason in self.reasons if all(map(fits, facts, reason))]
        self.used.update(found)
        return bool(found)

    def unused(self):
        return [f"no file needs the reason {reason}" for reason in self.reasons if reason not in self.used]

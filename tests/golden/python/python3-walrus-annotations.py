def find(nodes: list[str], *, deep: bool = False) -> dict[str, int]:
    if (n := len(nodes)) > 10:
        return {"n": n}
    count: int = 0
    total: "Total" = 1_000_000
    return {}
@dataclass
class Pose:
    name: str
    weight: float = 0.5
x = y[1:2, ::3]

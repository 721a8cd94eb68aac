import asyncio
async def load(path):
    async with opened(path) as f:
        async for line in f:
            yield line
    await asyncio.sleep(0.1)
class Loader:
    async def run(self): await self.go()
nonlocal_ = None

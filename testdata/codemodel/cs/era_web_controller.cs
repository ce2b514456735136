using Microsoft.AspNetCore.Mvc;

namespace TodoApi.Controllers;

/// <summary>CRUD for to-do items.</summary>
[ApiController]
[Route("api/[controller]")]
public class TodoItemsController : ControllerBase
{
    private readonly TodoContext _context;

    public TodoItemsController(TodoContext context) => _context = context;

    // GET: api/TodoItems
    /// <summary>Lists the items.</summary>
    [HttpGet]
    public async Task<ActionResult<IEnumerable<TodoItemDTO>>> GetTodoItems()
    {
        return await _context.TodoItems
            .Select(x => ItemToDTO(x))
            .ToListAsync();
    }

    /// <summary>One item.</summary>
    /// <param name="id">Its key.</param>
    [HttpGet("{id:long}")]
    [ProducesResponseType(typeof(TodoItemDTO), StatusCodes.Status200OK)]
    public async Task<ActionResult<TodoItemDTO>> GetTodoItem(long id)
    {
        var todoItem = await _context.TodoItems.FindAsync(id);
        if (todoItem == null) { return NotFound(); }
        return ItemToDTO(todoItem);
    }

    [HttpPut("{id}")]
    public async Task<IActionResult> PutTodoItem(long id, [FromBody] TodoItemDTO todoDTO, CancellationToken ct = default)
    {
        if (id != todoDTO.Id)
        {
            return BadRequest($"Id mismatch: {id} != {todoDTO.Id}");
        }
        return NoContent();
    }

    private bool TodoItemExists(long id) => _context.TodoItems.Any(e => e.Id == id);

    private static TodoItemDTO ItemToDTO(TodoItem todoItem) =>
       new TodoItemDTO
       {
           Id = todoItem.Id,
           Name = todoItem.Name,
           IsComplete = todoItem.IsComplete
       };
}
